#include "macfile/volume_kind.h"

#include "base/text.h"
#include "base/path.h"
#include "module/module_state.h"

namespace tidewell {

namespace {

// What a volume of another kind says of a name that it does not have, or cannot have.
bool isForeign(ErrorCode error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
           error == ERROR_BAD_PATHNAME || error == ERROR_FILENAME_EXCED_RANGE;
}

// Whether the folder has a Finder information of the driver that is not empty.
ErrorCode tellMacVolume(const char* folder, bool& mac) {
    mac = false;
    char path[kPathCapacity];
    if (JoinPath(path, sizeof path, folder, kFinderInfoName) > sizeof path) return 0;
    uint64_t size = 0;
    const ErrorCode error = GetSizeByPath(path, size);
    mac = error == 0 && static_cast<DWORD>(size) != 0;
    return isForeign(error) ? 0 : error;
}

ErrorCode tellNtfs(const char* rootPath, bool& ntfs) {
    char fileSystem[11];
    if (GetVolumeInformationA(rootPath, nullptr, 0, nullptr, nullptr, nullptr, fileSystem,
                              sizeof fileSystem)) {
        ntfs = equalsIgnoringCase(fileSystem, "NTFS");
        return 0;
    }
    ntfs = false;
    const ErrorCode error = lastError();
    // A name that does not fit is another's.
    return error == ERROR_MORE_DATA || error == ERROR_BAD_LENGTH ? 0 : error;
}

// NTFS is told by its name, although the driver's file could not be looked for.
ErrorCode tellVolumeKind(const char* rootPath, VolumeKind& kind) {
    kind = VolumeKindOther;
    bool mac = false;
    bool ntfs = false;
    const ErrorCode look = tellMacVolume(rootPath, mac);
    if (mac) kind = VolumeKindMac;
    if (mac || !RunningOnNt) return look;
    const ErrorCode error = tellNtfs(rootPath, ntfs);
    if (ntfs) kind = VolumeKindNtfs;
    return error == 0 && !ntfs ? look : error;
}

ErrorCode tellVolumeKindOfDrive(const char* path, VolumeKind& kind) {
    char root[] = "A:\\";
    root[0] = path[0];
    return tellVolumeKind(root, kind);
}

}  // namespace

bool IsMacVolume(const char* rootPath) {
    bool mac = false;
    tellMacVolume(rootPath, mac);
    return mac;
}

VolumeKind GetVolumeKind(const char* rootPath) {
    VolumeKind kind = VolumeKindOther;
    tellVolumeKind(rootPath, kind);
    return kind;
}

// A folder with a drive is asked about by its root: its own Finder information may be out of a path's reach.
ErrorCode TellVolumeKindOfFolder(const char* folder, VolumeKind& kind) {
    if (HasDrive(folder)) return tellVolumeKindOfDrive(folder, kind);
    bool mac = false;
    const ErrorCode error = tellMacVolume(folder, mac);
    kind = mac ? VolumeKindMac : VolumeKindOther;
    return error;
}

ErrorCode TellVolumeKindOfPath(const char* path, VolumeKind& kind) {
    if (HasDrive(path)) return tellVolumeKindOfDrive(path, kind);
    kind = VolumeKindOther;
    return 0;
}

}  // namespace tidewell
