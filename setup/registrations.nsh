; What is registered, once: the same table makes setup's entries and takes the uninstaller's away, in the 32-bit
; view of the registry and on 64-bit Windows in the 64-bit one.

; The list of Add/Remove Programs shows both views, so it has one entry, in the 32-bit view.
!define LIST "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define ENTRY "${LIST}\Tidewell"
!define EXTENSIONS "Software\Microsoft\Windows\CurrentVersion\Shell Extensions"
; Its values are the version, and the keys shared with others that were not there before.
!define RECORD "Software\Brinefield Software\Tidewell\Setup"

; Whether this is the NT family, which has a list of approved extensions.
Var OnNt
; "AMD64" on 64-bit Windows.
Var Processor

; By NSIS itself and not by its System plug-in, which needs more of MSVCRT.DLL than the first Windows 95 may have: where
; that is missing, only what is done for courtesy is left out.
!macro LearnSystem
  ReadEnvStr $Processor PROCESSOR_ARCHITEW6432
  ; 0, or the kind of NT in 7 bits; the eighth is set beside both.
  GetWinVer $OnNt Product
  IntOp $OnNt $OnNt & 0x7F
!macroend

!define PAGES "{4DD19180-ACE2-11CF-BBF2-444553540000}"
!define DRIVE_MENU "{4DD19181-ACE2-11CF-BBF2-444553540000}"
!define FILE_MENU "{4DD19182-ACE2-11CF-BBF2-444553540000}"

; For a folder of a disk the shell asks the handlers of Directory and those of Folder, for a drive those of Drive
; and those of Folder; so a class that is under Folder is under neither of the others, or it could be shown twice.
; Drops are for all that is a folder, the desktop too, which only Folder reaches. The menus and pages are not: a
; folder of the Control Panel has no path, and a drive's menu is another one.
!macro Registrations DO LIBRARY
  !insertmacro ${DO}Class "${PAGES}" "Tidewell 98 Mac property pages" "${LIBRARY}"
  !insertmacro ${DO}Class "${DRIVE_MENU}" "Tidewell 98 drive menu" "${LIBRARY}"
  !insertmacro ${DO}Class "${FILE_MENU}" "Tidewell 98 file menu" "${LIBRARY}"
  !insertmacro ${DO}Handler "*" "ContextMenuHandlers" "${FILE_MENU}"
  !insertmacro ${DO}Handler "*" "PropertySheetHandlers" "${PAGES}"
  !insertmacro ${DO}Handler "Directory" "ContextMenuHandlers" "${FILE_MENU}"
  !insertmacro ${DO}Handler "Directory" "PropertySheetHandlers" "${PAGES}"
  !insertmacro ${DO}Handler "Folder" "DragDropHandlers" "${FILE_MENU}"
  !insertmacro ${DO}Handler "Drive" "ContextMenuHandlers" "${DRIVE_MENU}"
  !insertmacro ${DO}Handler "Drive" "PropertySheetHandlers" "${PAGES}"
  !insertmacro ${DO}Record
!macroend

; With DO Register, $Problem names a key that could not be written. With Unregister nothing fails.
!macro EachView DO
  !insertmacro ${DO}Entry
  !insertmacro Registrations ${DO} "$INSTDIR\TIDEWELL.DLL"
  ${If} $Processor == "AMD64"
    SetRegView 64
    !insertmacro Registrations ${DO} "$INSTDIR\x64\TIDEWELL.DLL"
    SetRegView default
  ${EndIf}
!macroend

!macro RegisterValue KEY NAME DATA
  ClearErrors
  WriteRegStr HKLM "${KEY}" "${NAME}" `${DATA}`
  ${If} ${Errors}
    StrCpy $Problem "HKEY_LOCAL_MACHINE\${KEY}"
  ${EndIf}
!macroend

; A key that is not ours alone goes only when setup made it and nobody uses it.
!macro RegisterSharedKey KEY
  ClearErrors
  EnumRegKey $0 HKLM "${KEY}" 0
  ${If} ${Errors}
    !insertmacro RegisterValue "${RECORD}" "${KEY}" ""
  ${EndIf}
!macroend

!macro UnregisterSharedKey KEY
  ClearErrors
  ReadRegStr $0 HKLM "${RECORD}" "${KEY}"
  ${IfNot} ${Errors}
    DeleteRegKey /ifempty HKLM "${KEY}"
  ${EndIf}
!macroend

!macro RegisterClass CLASS TITLE LIBRARY
  !insertmacro RegisterValue "Software\Classes\CLSID\${CLASS}" "" "${TITLE}"
  !insertmacro RegisterValue "Software\Classes\CLSID\${CLASS}\InprocServer32" "" "${LIBRARY}"
  !insertmacro RegisterValue "Software\Classes\CLSID\${CLASS}\InprocServer32" "ThreadingModel" "Apartment"
  ${If} $OnNt <> 0
    !insertmacro RegisterSharedKey "${EXTENSIONS}"
    !insertmacro RegisterSharedKey "${EXTENSIONS}\Approved"
    !insertmacro RegisterValue "${EXTENSIONS}\Approved" "${CLASS}" "${TITLE}"
  ${EndIf}
!macroend

!macro UnregisterClass CLASS TITLE LIBRARY
  DeleteRegKey HKLM "Software\Classes\CLSID\${CLASS}"
  DeleteRegValue HKLM "${EXTENSIONS}\Approved" "${CLASS}"
  !insertmacro UnregisterSharedKey "${EXTENSIONS}\Approved"
  !insertmacro UnregisterSharedKey "${EXTENSIONS}"
!macroend

!macro RegisterHandler ITEMS KIND CLASS
  !insertmacro RegisterSharedKey "Software\Classes\${ITEMS}"
  !insertmacro RegisterSharedKey "Software\Classes\${ITEMS}\shellex"
  !insertmacro RegisterSharedKey "Software\Classes\${ITEMS}\shellex\${KIND}"
  !insertmacro RegisterValue "Software\Classes\${ITEMS}\shellex\${KIND}\Tidewell" "" "${CLASS}"
!macroend

!macro UnregisterHandler ITEMS KIND CLASS
  DeleteRegKey HKLM "Software\Classes\${ITEMS}\shellex\${KIND}\Tidewell"
  !insertmacro UnregisterSharedKey "Software\Classes\${ITEMS}\shellex\${KIND}"
  !insertmacro UnregisterSharedKey "Software\Classes\${ITEMS}\shellex"
  !insertmacro UnregisterSharedKey "Software\Classes\${ITEMS}"
!macroend

!macro RegisterRecord
  !insertmacro RegisterValue "${RECORD}" "Version" "${VERSION}"
!macroend

!macro UnregisterRecord
  DeleteRegKey HKLM "${RECORD}"
  DeleteRegKey /ifempty HKLM "Software\Brinefield Software\Tidewell"
  DeleteRegKey /ifempty HKLM "Software\Brinefield Software"
!macroend

!macro RegisterEntry
  !insertmacro RegisterSharedKey "${LIST}"
  !insertmacro RegisterValue "${ENTRY}" "DisplayName" "Tidewell 98"
  !insertmacro RegisterValue "${ENTRY}" "DisplayVersion" "${VERSION}"
  !insertmacro RegisterValue "${ENTRY}" "Publisher" "Brinefield Software"
  !insertmacro RegisterValue "${ENTRY}" "DisplayIcon" "$INSTDIR\TIDEWELL.DLL"
  !insertmacro RegisterValue "${ENTRY}" "InstallLocation" "$INSTDIR"
  !insertmacro RegisterValue "${ENTRY}" "Readme" "$INSTDIR\Readme.txt"
  !insertmacro RegisterValue "${ENTRY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  !insertmacro RegisterValue "${ENTRY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
!macroend

!macro UnregisterEntry
  DeleteRegKey HKLM "${ENTRY}"
  !insertmacro UnregisterSharedKey "${LIST}"
!macroend
