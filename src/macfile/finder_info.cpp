#include "macfile/finder_info.h"

#include "base/file.h"

#include <cstring>

namespace tidewell {

namespace {

DWORD sizeOf(VolumeKind kind) {
    return kind == VolumeKindMac ? sizeof(MacVolumeInfo) : sizeof(AfpInfo);
}

}  // namespace

BOOL ReadFinderInfo(const char* finderInfoPath, FinderInfoRecord* record) {
    std::memset(static_cast<void*>(record), 0, sizeof *record);
    record->kind = GetVolumeKindOfPath(finderInfoPath);
    if (record->kind == VolumeKindOther) return failWith(ERROR_INVALID_PARAMETER);
    OwnedFile file;
    ErrorCode error = OpenForReading(finderInfoPath, file);
    if (error == 0) error = ReadWhole(file.get(), &record->mac, sizeOf(record->kind));
    return error == 0 ? 1 : failWith(error);
}

BOOL WriteFinderInfo(const char* finderInfoPath, const FinderInfoRecord* record) {
    const VolumeKind kind = GetVolumeKindOfPath(finderInfoPath);
    if (kind == VolumeKindOther || kind != record->kind) return failWith(ERROR_INVALID_PARAMETER);
    const DWORD disposition = kind == VolumeKindNtfs ? OPEN_ALWAYS : OPEN_EXISTING;
    OwnedFile file(CreateFileA(finderInfoPath, GENERIC_WRITE, FILE_SHARE_READ, nullptr, disposition,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return 0;
    ErrorCode error = WriteWhole(file.get(), &record->mac, sizeOf(kind));
    if (error == 0 && !FlushFileBuffers(file.get())) error = lastErrorOr(ERROR_GEN_FAILURE);
    const ErrorCode closed = CloseWritten(file);
    if (error == 0) error = closed;
    return error == 0 ? 1 : failWith(error);
}

}  // namespace tidewell
