#include "macfile/volume_kind.h"

#include "base/text.h"
#include "base/path.h"
#include "module/module_state.h"

namespace tidewell {

bool IsMacVolume(const char* rootPath) {
    char path[kPathCapacity];
    if (JoinPath(path, sizeof path, rootPath, kFinderInfoName) > sizeof path) return false;
    return GetFileSizeByPath(path) != 0;
}

VolumeKind GetVolumeKind(const char* rootPath) {
    if (IsMacVolume(rootPath)) return VolumeKindMac;
    if (!RunningOnNt) return VolumeKindOther;
    char fileSystem[11];
    if (!GetVolumeInformationA(rootPath, nullptr, 0, nullptr, nullptr, nullptr, fileSystem,
                               sizeof fileSystem))
        return VolumeKindOther;
    return equalsIgnoringCase(fileSystem, "NTFS") ? VolumeKindNtfs : VolumeKindOther;
}

VolumeKind GetVolumeKindOfPath(const char* path) {
    // The first letter of a relative or network path says nothing about a drive.
    if (path[0] == '\0' || path[1] != ':') return VolumeKindOther;
    char root[] = "A:\\";
    root[0] = path[0];
    return GetVolumeKind(root);
}

}  // namespace tidewell
