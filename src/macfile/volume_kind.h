// Where a volume keeps the Mac information of its files.
#ifndef TIDEWELL_MACFILE_VOLUME_KIND_H
#define TIDEWELL_MACFILE_VOLUME_KIND_H

#include "base/error_code.h"

#include <cstdint>

namespace tidewell {

enum VolumeKind : uint32_t {
    VolumeKindOther = 0,  // nowhere: FAT, network paths, CDs
    VolumeKindMac = 1,    // a Mac volume of the Mac volume driver: in pseudo-files
    VolumeKindNtfs = 2,   // NTFS under Windows NT: in streams
};

// The driver's pseudo-files below every file and folder, and the streams of a file on NTFS.
constexpr char kResourceForkName[] = "{4DD19183-ACE2-11CF-BBF2-444553540000}";
constexpr char kFinderInfoName[] = "{4DD19184-ACE2-11CF-BBF2-444553540000}";
constexpr char kResourceForkStream[] = ":AFP_Resource";
constexpr char kFinderInfoStream[] = ":AFP_AfpInfo";

// Whether the root folder ("M:\"), or any other folder, has a Finder information of the driver. What cannot
// be told is false.
bool IsMacVolume(const char* rootPath);

// The kind of the volume with the root folder `rootPath`, which is not empty. What cannot be told is
// VolumeKindOther: for what is shown or offered, not for what is converted.
VolumeKind GetVolumeKind(const char* rootPath);

// The kind of the volume that a full path lies on. The system's error, and VolumeKindOther, when it cannot be
// told: a disk that keeps Mac information and cannot be asked is not one that keeps none. Of a path without a
// drive only the folder itself can tell, by a Finder information of the driver.
ErrorCode TellVolumeKindOfFolder(const char* folder, VolumeKind& kind);

// The same for a file. Without a drive it is VolumeKindOther.
ErrorCode TellVolumeKindOfPath(const char* path, VolumeKind& kind);

}  // namespace tidewell

#endif
