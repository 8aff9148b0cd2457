; The setup program of Tidewell, for Windows 95 to today: one 32-bit program for both kinds of Windows.
;
;   TidewellSetup.exe [/S] [/D=FOLDER]     /S: silently; /D comes last and is not quoted
;   Uninstall.exe [/S] [/FORGET]           /FORGET: the folders that this user chose are forgotten, too
;
; The exit code is 0, 1 when the user cancelled, 2 after an error, 3010 when Windows has to be restarted.
; cmake/setup.cmake defines VERSION, OUTPUT, SOURCE, README, BUILD32 and BUILD64.

; The ANSI program is the one that runs on Windows 95, 98 and NT 4.
Unicode false
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include LogicLib.nsh
!include FileFunc.nsh
!include MUI2.nsh
!include "${SOURCE}/registrations.nsh"

Name "Tidewell 98"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES\Tidewell"
BrandingText " "
ShowInstDetails nevershow
ShowUninstDetails nevershow
; A file that cannot be written is told by the error flag, and stops setup.
SetOverwrite try
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Tidewell"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey CompanyName "Brinefield Software"
VIAddVersionKey FileDescription "Tidewell 98 Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Brinefield Software"

; Where the product is installed already, or empty.
Var Installed
; Not empty when files that exist may only be replaced at the next start of Windows.
Var AtNextStart
; The file or key that could not be written.
Var Problem

; Nobody's work is ended by a key pressed too soon.
!macro RestartChoice
  !define MUI_FINISHPAGE_REBOOTLATER_DEFAULT
  !define MUI_FINISHPAGE_TEXT_REBOOTNOW "Restart Windows now"
  !define MUI_FINISHPAGE_TEXT_REBOOTLATER "Restart Windows later"
!macroend

!define MUI_ICON "${SOURCE}/../src/res/tidewell.ico"
!define MUI_UNICON "${SOURCE}/../src/res/tidewell.ico"
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Tidewell 98 is installed"
!define MUI_FINISHPAGE_TEXT "Its commands are in the shortcut menus of files, folders and drives, and its pages in \
their properties. Explorer windows that are open now may have to be closed first."
!define MUI_FINISHPAGE_TEXT_REBOOT "Some files of Tidewell 98 are in use. They are replaced when Windows starts \
the next time."
!insertmacro RestartChoice
!insertmacro MUI_PAGE_FINISH
!define MUI_PAGE_HEADER_TEXT "Remove Tidewell 98"
!define MUI_PAGE_HEADER_SUBTEXT "Tidewell 98 is removed from Explorer and from this computer."
!define MUI_COMPONENTSPAGE_TEXT_TOP "Tidewell 98 remembers where you put Mac files, for when you install it again. \
Check the box to have that forgotten, too."
!define MUI_COMPONENTSPAGE_TEXT_COMPLIST "To be removed:"
!define MUI_PAGE_CUSTOMFUNCTION_SHOW un.HideSpace
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Tidewell 98 is removed"
!define MUI_FINISHPAGE_TEXT "Its commands and pages are gone from Explorer."
!define MUI_FINISHPAGE_TEXT_REBOOT "Some files of Tidewell 98 are in use. They are deleted when Windows starts the \
next time."
!insertmacro RestartChoice
!insertmacro MUI_UNPAGE_FINISH
!insertmacro MUI_LANGUAGE English

; What is installed, once for all that is done with it: its source, and its name in the folder.
!macro Files DO
  !insertmacro ${DO} "${BUILD32}/TIDEWELL.DLL" "TIDEWELL.DLL"
  !insertmacro ${DO} "${BUILD32}/tidewell.exe" "tidewell.exe"
  !insertmacro ${DO} "${README}" "Readme.txt"
  ${If} $Processor == "AMD64"
    !insertmacro ${DO} "${BUILD64}/TIDEWELL.DLL" "x64\TIDEWELL.DLL"
  ${EndIf}
!macroend

; All files are written under names of their own first, so that one that cannot be written leaves the installed
; ones as they are. The name is always the same: where an earlier setup's file still waits for the next start,
; this one takes its place, and so the newer file wins.
;
; The other way round, what waits for the next start must not hit what is installed now. A file that waits shows
; that there is something; so does a file without a product, which its uninstaller could not delete. Then a file
; that exists is replaced at the next start, after what was asked for before.
!macro Stage FROM TO
  ${If} $Installed == ""
  ${AndIf} ${FileExists} "$INSTDIR\${TO}"
  ${OrIf} ${FileExists} "$INSTDIR\${TO}.new"
    StrCpy $AtNextStart 1
  ${EndIf}
  ClearErrors
  File "/oname=$INSTDIR\${TO}.new" "${FROM}"
  !insertmacro StopOnErrors "$INSTDIR\${TO}"
!macroend

; A library that Explorer has loaded can be neither written nor deleted: it stays until the next start.
!macro PutInPlace FROM TO
  ${If} $AtNextStart == ""
    Delete "$INSTDIR\${TO}"
  ${EndIf}
  ClearErrors
  Rename /REBOOTOK "$INSTDIR\${TO}.new" "$INSTDIR\${TO}"
  !insertmacro StopOnErrors "$INSTDIR\${TO}"
!macroend

!macro Discard FROM TO
  Delete "$INSTDIR\${TO}.new"
!macroend

!macro Remove FROM TO
  Delete "$INSTDIR\${TO}.new"
  Delete /REBOOTOK "$INSTDIR\${TO}"
!macroend

!macro StopOnErrors WHAT
  ${If} ${Errors}
    StrCpy $Problem "${WHAT}"
    Call Stop
  ${EndIf}
!macroend

!macro TellShell
  ; SHCNE_ASSOCCHANGED
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

!macro TellRestart
  ${If} ${RebootFlag}
    SetErrorLevel 3010
  ${EndIf}
!macroend

Function .onInit
  !insertmacro LearnSystem
  ; Two copies in two folders could not both be registered: a new version goes where the old one is.
  ReadRegStr $Installed HKLM "${ENTRY}" "InstallLocation"
  ${If} $Installed != ""
    StrCpy $INSTDIR $Installed
  ${EndIf}
FunctionEnd

Function SkipWhenInstalled
  ${If} $Installed != ""
    Abort
  ${EndIf}
FunctionEnd

Function Stop
  SetErrorLevel 2
  MessageBox MB_OK|MB_ICONSTOP "Setup cannot write$\r$\n$\r$\n$Problem$\r$\n$\r$\nMake sure that there is room on \
the disk and that you have the rights of an administrator, and run Setup again." /SD IDOK
  Abort
FunctionEnd

; Also after a failure that NSIS finds itself, as a full disk.
Function .onInstFailed
  !insertmacro Files Discard
  Delete "$INSTDIR\Uninstall.exe.new"
  RMDir "$INSTDIR\x64"
  RMDir "$INSTDIR"
FunctionEnd

Section
  ClearErrors
  CreateDirectory "$INSTDIR"
  ${If} $Processor == "AMD64"
    CreateDirectory "$INSTDIR\x64"
  ${EndIf}
  !insertmacro StopOnErrors "$INSTDIR"
  !insertmacro Files Stage
  WriteUninstaller "$INSTDIR\Uninstall.exe.new"
  !insertmacro StopOnErrors "$INSTDIR\Uninstall.exe"
  !insertmacro Files PutInPlace
  !insertmacro PutInPlace "" "Uninstall.exe"

  StrCpy $Problem ""
  !insertmacro EachView Register
  ${If} $Problem != ""
    !insertmacro EachView Unregister
    !insertmacro Files Remove
    Delete "$INSTDIR\Uninstall.exe"
    Call Stop
  ${EndIf}
  !insertmacro TellShell
  !insertmacro TellRestart
SectionEnd

; Calls the library's function whose name is on the stack, and unloads the library again. It is called by its
; address: a path with parentheses, as that of the 32-bit programs is, would end the name of a function.
Function un.CallLibrary
  Pop $1
  StrCpy $0 "$INSTDIR\TIDEWELL.DLL"
  System::Call 'kernel32::LoadLibrary(t r0) p .r0'
  ${If} $0 P<> 0
    System::Call 'kernel32::GetProcAddress(p r0, m r1) p .r1'
    ${If} $1 P<> 0
      System::Call '::$1() i'
    ${EndIf}
    System::Call 'kernel32::FreeLibrary(p r0)'
  ${EndIf}
FunctionEnd

; Nothing needs space on the disk to be removed.
Function un.HideSpace
  FindWindow $0 "#32770" "" $HWNDPARENT
  GetDlgItem $0 $0 1023
  ShowWindow $0 ${SW_HIDE}
FunctionEnd

Section "un.Tidewell 98"
  SectionIn RO
  ; A current folder cannot be removed.
  SetOutPath $TEMP
  Push UninstInitialize
  Call un.CallLibrary
  !insertmacro EachView Unregister
  !insertmacro TellShell
  Push UninstUnInitialize
  Call un.CallLibrary
  !insertmacro Files Remove
  Delete "$INSTDIR\Uninstall.exe.new"
  Delete "$INSTDIR\Uninstall.exe"
  ; A folder with somebody else's files stays, and is no reason for a restart.
  ${If} ${RebootFlag}
    RMDir /REBOOTOK "$INSTDIR\x64"
    RMDir /REBOOTOK "$INSTDIR"
  ${Else}
    RMDir "$INSTDIR\x64"
    RMDir "$INSTDIR"
  ${EndIf}
  !insertmacro TellRestart
SectionEnd

!define SETTINGS "Software\Brinefield Software\Tidewell"
Section /o "un.Forget the folders chosen for Mac files" FORGET
  DeleteRegValue HKCU "${SETTINGS}\CurrentVersion" "MBinCreatePath"
  DeleteRegValue HKCU "${SETTINGS}\CurrentVersion" "MBinExtractPath"
  DeleteRegKey /ifempty HKCU "${SETTINGS}\CurrentVersion"
  DeleteRegKey /ifempty HKCU "${SETTINGS}"
  DeleteRegKey /ifempty HKCU "Software\Brinefield Software"
SectionEnd

Function un.onInit
  !insertmacro LearnSystem
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/FORGET" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${FORGET}
  ${EndIf}
FunctionEnd
