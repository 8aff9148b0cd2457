// The Finder information of a Mac file, as either kind of volume keeps it.
#ifndef TIDEWELL_MACFILE_FINDER_INFO_H
#define TIDEWELL_MACFILE_FINDER_INFO_H

#include "base/byte_order.h"
#include "macfile/fork_paths.h"

namespace tidewell {

// What both records hold, as on the Mac.
struct FinderFields {
    Be<uint32_t> type;
    Be<uint32_t> creator;
    Be<uint16_t> flags;
    Be<uint16_t> vertical;  // of the icon
    Be<uint16_t> horizontal;
    Be<uint16_t> window;  // window or folder identifier
};
static_assert(sizeof(FinderFields) == 16);

// The stream of the NTFS Macintosh services.
struct AfpInfo {
    Le<uint32_t> signature;
    Le<uint32_t> version;
    uint8_t unused8[8];
    FinderFields finder;
    uint8_t unused32[28];
};
static_assert(sizeof(AfpInfo) == 60 && offsetof(AfpInfo, finder) == 16);

// The driver's pseudo-file. The unnamed bytes are the driver's own and are written back as they were read.
struct MacVolumeInfo {
    uint8_t driver0[513];
    Le<uint32_t> fileCount;    // of the volume, in its root folder's record
    Le<uint32_t> folderCount;  // likewise
    uint8_t attributes;        // MacBinary's protected byte
    uint8_t attributesHigh;    // 0 whenever `attributes` is stored
    FinderFields finder;
    uint8_t driver539[16];
    Le<uint32_t> dataForkLength;  // of a file, in bytes
    uint8_t driver559[12];
    Le<uint32_t> resourceForkLength;  // of a file, in bytes
    uint8_t driver575[32];
    uint8_t nameLength;            // of the Mac name, at most 31
    uint8_t name[31];              // in the Mac character set
    Le<uint16_t> unicodeNameSize;  // in bytes
    Le<uint16_t> unicodeName[255];
    uint8_t driver1151[4];
};
static_assert(sizeof(MacVolumeInfo) == 1155);
static_assert(offsetof(MacVolumeInfo, attributes) == 521 && offsetof(MacVolumeInfo, finder) == 523);
static_assert(offsetof(MacVolumeInfo, dataForkLength) == 555);
static_assert(offsetof(MacVolumeInfo, resourceForkLength) == 571);
static_assert(offsetof(MacVolumeInfo, nameLength) == 607);
static_assert(offsetof(MacVolumeInfo, unicodeNameSize) == 639);
static_assert(offsetof(MacVolumeInfo, unicodeName) == 641);

struct FinderInfoRecord {
    VolumeKind kind;
    union {
        MacVolumeInfo mac;  // VolumeKindMac
        AfpInfo afp;        // VolumeKindNtfs
    };
};

// Reads the record of the file with these paths, which is zero-filled and has its kind set even on failure.
// Returns 1, or 0 with the last error: 87 where the volume keeps none, 38 for a record cut short, else the
// file system's (2 when the file has none).
BOOL ReadFinderInfo(const ForkPaths& paths, FinderInfoRecord* record);

// Writes the whole record back and has it put on the disk. Returns 1, or 0 with the last error: 87 when the
// file's volume is not of the record's kind, 39 for a short write, else the file system's.
BOOL WriteFinderInfo(const ForkPaths& paths, const FinderInfoRecord* record);

}  // namespace tidewell

#endif
