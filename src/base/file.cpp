#include "base/file.h"

namespace tidewell {

bool MeansNothingThere(ErrorCode error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_NETNAME_DELETED:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_NO_NETWORK: return true;
    default: return false;
    }
}

bool MayExist(const char* path) {
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES || !MeansNothingThere(GetLastError());
}

bool IsFolder(const char* path) {
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

ErrorCode OpenForReading(const char* path, OwnedFile& file) {
    file = OwnedFile(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? 0 : lastError();
}

ErrorCode GetSizeOf(HANDLE file, uint64_t& size) {
    DWORD high = 0;
    const DWORD low = GetFileSize(file, &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) return GetLastError();
    size = static_cast<uint64_t>(high) << 32 | low;
    return 0;
}

ErrorCode SeekTo(HANDLE file, uint64_t position) {
    LONG high = static_cast<LONG>(position >> 32);
    const DWORD low = SetFilePointer(file, static_cast<LONG>(position & 0xFFFFFFFF), &high, FILE_BEGIN);
    return low == INVALID_SET_FILE_POINTER ? GetLastError() : 0;
}

ErrorCode ReadWhole(HANDLE file, void* buffer, DWORD count) {
    DWORD transferred = 0;
    if (!ReadFile(file, buffer, count, &transferred, nullptr)) return lastError();
    return transferred == count ? 0 : ERROR_HANDLE_EOF;
}

ErrorCode WriteWhole(HANDLE file, const void* buffer, DWORD count) {
    DWORD transferred = 0;
    if (!WriteFile(file, buffer, count, &transferred, nullptr)) return lastError();
    return transferred == count ? 0 : ERROR_HANDLE_DISK_FULL;
}

ErrorCode WriteAll(HANDLE file, const void* buffer, uint64_t count) {
    constexpr DWORD kMostAtOnce = 1 << 30;
    const auto* bytes = static_cast<const uint8_t*>(buffer);
    while (count != 0) {
        const DWORD part = count < kMostAtOnce ? static_cast<DWORD>(count) : kMostAtOnce;
        const ErrorCode error = WriteWhole(file, bytes, part);
        if (error != 0) return error;
        bytes += part;
        count -= part;
    }
    return 0;
}

ErrorCode FlushWritten(HANDLE file) {
    if (FlushFileBuffers(file)) return 0;
    const ErrorCode error = lastError();
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ? 0 : error;
}

ErrorCode CloseWritten(OwnedFile& file) {
    return CloseHandle(file.release()) ? 0 : lastError();
}

}  // namespace tidewell
