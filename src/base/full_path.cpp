#include "base/full_path.h"

#include "base/path.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr char kVerbatimServer[] = "\\\\?\\UNC\\";

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

// "\\?\" or "\\.\", by its mark, with either separator.
bool beginsWithPrefix(const char* path, char mark) {
    return isSeparator(path[0]) && isSeparator(path[1]) && path[2] == mark && isSeparator(path[3]);
}

ErrorCode resolve(const char* path, char* full) {
    const DWORD length = GetFullPathNameA(path, kPathCapacity, full, nullptr);
    if (length == 0) return lastError();
    return length < kPathCapacity ? 0 : ERROR_FILENAME_EXCED_RANGE;
}

// The system takes such a path as it stands. Without its prefix it must not become another one.
ErrorCode resolveVerbatim(const char* path, char* full) {
    char plain[kPathCapacity] = "\\\\";
    const bool server = std::strncmp(path, kVerbatimServer, sizeof kVerbatimServer - 1) == 0;
    const char* const rest = path + (server ? sizeof kVerbatimServer : sizeof "\\\\?\\") - 1;
    if (!server && !HasDrive(rest)) return ERROR_INVALID_NAME;
    char* const start = plain + (server ? 2 : 0);
    const size_t size = std::strlen(rest) + 1;
    if (size > static_cast<size_t>(plain + sizeof plain - start)) return ERROR_FILENAME_EXCED_RANGE;
    std::memcpy(start, rest, size);
    const ErrorCode error = resolve(plain, full);
    if (error != 0) return error;
    return std::strcmp(plain, full) == 0 ? 0 : ERROR_INVALID_NAME;
}

}  // namespace

ErrorCode GetFullPath(const char* path, char* full) {
    return beginsWithPrefix(path, '?') ? resolveVerbatim(path, full) : resolve(path, full);
}

ErrorCode GetFullOutputPath(const char* path, char* full) {
    const ErrorCode error = GetFullPath(path, full);
    return error == 0 && beginsWithPrefix(full, '.') ? ERROR_INVALID_NAME : error;
}

}  // namespace tidewell
