#include "convert/conversion_commands.h"

#include "base/full_path.h"
#include "base/path.h"
#include "convert/conversion_batch.h"
#include "macfile/volume_kind.h"
#include "messages.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "ui/message_box.h"
#include "ui/settings.h"
#include "ui/shell_folders.h"
#include "ui/strings.h"

namespace tidewell {

namespace {

constexpr char kExtractFolderSetting[] = "MBinExtractPath";
constexpr char kCreateFolderSetting[] = "MBinCreatePath";

// The texts of a batch's progress, and its icon, from the library itself.
struct BatchTexts {
    BatchTexts(UINT titleId, UINT preparingId, UINT iconId)
        : title(LoadStringAlloc(ModuleInstance, titleId)),
          preparing(LoadStringAlloc(ModuleInstance, preparingId)),
          icon(LoadIconA(ModuleInstance, MAKEINTRESOURCEA(iconId))) {}
    BatchDisplay display() const { return {title.get(), preparing.get(), icon}; }

    LocalText title, preparing;
    HICON icon;
};

// Whoever has edited the setting may have written a path in any form; the folder chooser wants a full one.
bool readFolder(const char* setting, char* folder) {
    char stored[kPathCapacity];
    return ReadSettingFolder(TRUE, setting, stored, sizeof stored) && GetFullOutputPath(stored, folder) == 0;
}

// The root of the first drive that is a Mac volume and no CD.
bool findMacDrive(char* folder) {
    const DWORD drives = GetLogicalDrives();
    char root[] = "A:\\";
    for (; root[0] <= 'Z'; ++root[0]) {
        if ((drives >> (root[0] - 'A') & 1) == 0 || !IsFolder(root)) continue;
        if (GetDriveTypeA(root) == DRIVE_CDROM || !IsMacVolume(root)) continue;
        CopyPath(folder, root);
        return true;
    }
    return false;
}

void folderOfFile(const char* path, char* folder) {
    const DWORD length = GetShortPath(path, folder, kPathCapacity);
    if (length == 0 || length >= kPathCapacity) CopyPath(folder, path);
    char* name = folder + (FileNamePart(folder) - folder);
    // A root keeps its backslash; no other folder is known by one.
    if (name - folder > 3) --name;
    *name = '\0';
}

bool chooseExtractFolder(HWND owner, const PathList& selection, char* folder) {
    if (!readFolder(kExtractFolderSetting, folder) && !findMacDrive(folder))
        folderOfFile(selection.Next(nullptr), folder);
    const LocalText title(LoadStringAlloc(ResourceModule, IDS_CHOOSE_EXTRACT_FOLDER));
    return !title || BrowseForFolder(owner, title.get(), folder);
}

bool chooseCreateFolder(HWND owner, char* folder) {
    if (!readFolder(kCreateFolderSetting, folder) && !GetDesktopDirectoryPath(folder)) return false;
    const LocalText title(LoadStringAlloc(ResourceModule, IDS_CHOOSE_CREATE_FOLDER));
    return title && BrowseForFolder(owner, title.get(), folder);
}

}  // namespace

// A folder without a drive is asked about itself, as the extraction asks: what it keeps is not lost.
bool ConfirmExtractDestination(HWND owner, const char* folder) {
    VolumeKind kind = VolumeKindOther;
    TellVolumeKindOfFolder(folder, kind);
    if (kind != VolumeKindOther) return true;
    return MessageBoxFromTable(owner, MSG_EXTRACT_LOSES_INFORMATION, IDS_TITLE, MB_YESNO | MB_ICONQUESTION) ==
           IDYES;
}

void ExtractOriginalMacFiles(HWND owner, const PathList& selection, const char* hereFolder) {
    if (selection.Count() == 0) return;
    SetErrorMode(SEM_FAILCRITICALERRORS | SetErrorMode(SEM_FAILCRITICALERRORS));
    char folder[kPathCapacity];
    if (hereFolder)
        CopyPath(folder, hereFolder);
    else if (!chooseExtractFolder(owner, selection, folder))
        return;
    if (!ConfirmExtractDestination(owner, folder)) return;
    WriteSettingString(TRUE, kExtractFolderSetting, folder);
    const BatchTexts texts(IDS_EXTRACTING, IDS_PREPARING_EXTRACT, IDI_EXTRACT);
    ExtractFiles({owner, selection, folder, texts.display()});
}

void CreateMacBinaryFiles(HWND owner, const PathList& selection, const char* hereFolder) {
    char folder[kPathCapacity];
    if (hereFolder)
        CopyPath(folder, hereFolder);
    else if (!chooseCreateFolder(owner, folder))
        return;
    WriteSettingString(TRUE, kCreateFolderSetting, folder);
    const BatchTexts texts(IDS_CREATING, IDS_PREPARING_CREATE, IDI_CREATE_MACBINARY);
    PackFiles({owner, selection, folder, texts.display()});
}

}  // namespace tidewell
