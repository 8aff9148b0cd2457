#include "base/file.h"

namespace tidewell {

ErrorCode ReadWhole(HANDLE file, void* buffer, DWORD count) {
    DWORD transferred = 0;
    if (!ReadFile(file, buffer, count, &transferred, nullptr)) return lastErrorOr(ERROR_HANDLE_EOF);
    return transferred == count ? 0 : ERROR_HANDLE_EOF;
}

ErrorCode WriteWhole(HANDLE file, const void* buffer, DWORD count) {
    DWORD transferred = 0;
    if (!WriteFile(file, buffer, count, &transferred, nullptr)) return lastErrorOr(ERROR_HANDLE_DISK_FULL);
    return transferred == count ? 0 : ERROR_HANDLE_DISK_FULL;
}

ErrorCode CloseWritten(OwnedFile& file) {
    return CloseHandle(file.release()) ? 0 : lastErrorOr(ERROR_GEN_FAILURE);
}

}  // namespace tidewell
