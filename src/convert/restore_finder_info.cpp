#include "convert/restore_finder_info.h"

#include "base/error_code.h"
#include "macfile/finder_info.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr uint32_t kAfpSignature = 0x00504641;  // "AFP" and 0
constexpr uint32_t kAfpVersion = 0x00010000;

// A file on NTFS has no record until one is written.
bool readOrBegin(const char* finderInfoPath, FinderInfoRecord& record) {
    if (ReadFinderInfo(finderInfoPath, &record)) return true;
    if (GetLastError() != ERROR_FILE_NOT_FOUND || record.kind != VolumeKindNtfs) return false;
    std::memset(static_cast<void*>(&record), 0, sizeof record);
    record.kind = VolumeKindNtfs;
    return true;
}

void mergeFields(FinderFields& finder, const MacBinaryHeader& header) {
    const auto flags = static_cast<uint16_t>(header.flagsHigh << 8 | header.flagsLow);
    if (header.type != 0) finder.type = header.type;
    if (header.creator != 0) finder.creator = header.creator;
    if (flags != 0) finder.flags = flags;
    finder.vertical = header.vertical;
    finder.horizontal = header.horizontal;
    if (header.window != 0) finder.window = header.window;
}

}  // namespace

BOOL WriteFinderInfoFromHeader(const char* finderInfoPath, const MacBinaryHeader& header) {
    FinderInfoRecord record;
    if (!readOrBegin(finderInfoPath, record)) return 0;
    switch (record.kind) {
    case VolumeKindMac:
        mergeFields(record.mac.finder, header);
        record.mac.attributes = header.protectedFlag;
        record.mac.attributesHigh = 0;
        break;
    case VolumeKindNtfs:
        record.afp.signature = kAfpSignature;
        record.afp.version = kAfpVersion;
        mergeFields(record.afp.finder, header);
        break;
    default: return failWith(ERROR_INVALID_PARAMETER);
    }
    return WriteFinderInfo(finderInfoPath, &record);
}

}  // namespace tidewell
