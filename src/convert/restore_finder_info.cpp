#include "convert/restore_finder_info.h"

#include "base/error_code.h"

namespace tidewell {

namespace {

constexpr uint32_t kAfpSignature = 0x00504641;  // "AFP" and 0
constexpr uint32_t kAfpVersion = 0x00010000;

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

ErrorCode ReadFinderInfoToKeep(const ForkPaths& paths, FinderInfoRecord& had) {
    if (ReadFinderInfo(paths, &had)) return 0;
    const ErrorCode error = lastError();
    if (error != ERROR_FILE_NOT_FOUND) return error;
    // The driver may know of an item whose file is yet to be made; then it has a record of it.
    if (paths.kind == VolumeKindMac) had.kind = VolumeKindOther;
    return 0;
}

BOOL WriteFinderInfoFromHeader(const ForkPaths& paths, const FinderInfoRecord& had,
                               const MacBinaryHeader& header) {
    FinderInfoRecord record = had;
    switch (paths.kind) {
    case VolumeKindMac:
        // The record is the driver's: it tells of the file as it is now.
        if (!ReadFinderInfo(paths, &record)) return 0;
        if (had.kind == VolumeKindMac) record.mac.finder = had.mac.finder;
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
    return WriteFinderInfo(paths, &record);
}

}  // namespace tidewell
