// Where a volume keeps the Mac information of its files.
#ifndef TIDEWELL_MACFILE_VOLUME_KIND_H
#define TIDEWELL_MACFILE_VOLUME_KIND_H

#include <windows.h>

#include <cstdint>

namespace tidewell {

enum VolumeKind : uint32_t {
    VolumeKindOther = 0,  // nowhere: FAT, network paths, CDs, and any failure to tell
    VolumeKindMac = 1,    // a Mac volume of the Mac volume driver: in pseudo-files
    VolumeKindNtfs = 2,   // NTFS under Windows NT: in streams
};

// The driver's pseudo-files below every file and folder, and the streams of a file on NTFS.
constexpr char kResourceForkName[] = "{4DD19183-ACE2-11CF-BBF2-444553540000}";
constexpr char kFinderInfoName[] = "{4DD19184-ACE2-11CF-BBF2-444553540000}";
constexpr char kResourceForkStream[] = ":AFP_Resource";
constexpr char kFinderInfoStream[] = ":AFP_AfpInfo";

// Whether the root folder ("M:\"), or any other folder, has a Finder information of the driver.
bool IsMacVolume(const char* rootPath);

// `rootPath` is not empty. Never fails: what cannot be told is VolumeKindOther.
VolumeKind GetVolumeKind(const char* rootPath);

// The kind of the drive that a full path begins with; VolumeKindOther for a path without a drive.
VolumeKind GetVolumeKindOfPath(const char* path);

}  // namespace tidewell

#endif
