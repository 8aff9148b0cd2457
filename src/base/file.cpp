#include "base/file.h"

namespace tidewell {

bool MayExist(const char* path) {
    if (GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES) return true;
    const DWORD error = GetLastError();
    return error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND;
}

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
