#include "macfile/finder_info.h"

#include "base/file.h"

#include <cstring>

namespace tidewell {

namespace {

DWORD sizeOf(VolumeKind kind) {
    return kind == VolumeKindMac ? sizeof(MacVolumeInfo) : sizeof(AfpInfo);
}

ErrorCode read(const ForkPaths& paths, FinderInfoRecord& record) {
    OwnedFile file;
    const ErrorCode error = OpenForReading(paths.finderInfoPath, file);
    return error != 0 ? error : ReadWhole(file.get(), &record.mac, sizeOf(paths.kind));
}

}  // namespace

BOOL ReadFinderInfo(const ForkPaths& paths, FinderInfoRecord* record) {
    std::memset(static_cast<void*>(record), 0, sizeof *record);
    record->kind = paths.kind;
    if (paths.kind == VolumeKindOther) return failWith(ERROR_INVALID_PARAMETER);
    // The file is closed before the error is left: a call that succeeds may change it, too.
    const ErrorCode error = read(paths, *record);
    return error == 0 ? 1 : failWith(error);
}

BOOL WriteFinderInfo(const ForkPaths& paths, const FinderInfoRecord* record) {
    if (paths.kind == VolumeKindOther || paths.kind != record->kind) return failWith(ERROR_INVALID_PARAMETER);
    const DWORD disposition = paths.kind == VolumeKindNtfs ? OPEN_ALWAYS : OPEN_EXISTING;
    OwnedFile file(CreateFileA(paths.finderInfoPath, GENERIC_WRITE, FILE_SHARE_READ, nullptr, disposition,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return failWith(lastError());
    ErrorCode error = WriteWhole(file.get(), &record->mac, sizeOf(paths.kind));
    if (error == 0) error = FlushWritten(file.get());
    const ErrorCode closed = CloseWritten(file);
    if (error == 0) error = closed;
    return error == 0 ? 1 : failWith(error);
}

}  // namespace tidewell
