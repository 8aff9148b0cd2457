#include "base/path.h"

#include "base/owned.h"
#include "base/text.h"

#include <cstring>

namespace tidewell {

namespace {

bool endsWithBackslash(const char* text) {
    const char* const last = lastCharacter(text, '\\');
    return last != nullptr && last[1] == '\0';
}

}  // namespace

DWORD JoinPath(char* out, DWORD capacity, const char* dir, const char* name) {
    const size_t dirLength = std::strlen(dir);
    const size_t nameSize = std::strlen(name) + 1;
    const size_t separator = !endsWithBackslash(dir) && name[0] != ':' ? 1 : 0;
    const size_t size = dirLength + separator + nameSize;
    if (size <= capacity) {
        if (out != dir) std::memcpy(out, dir, dirLength);
        if (separator != 0) out[dirLength] = '\\';
        std::memcpy(out + dirLength + separator, name, nameSize);
    }
    return static_cast<DWORD>(size);
}

void CopyPath(char* out, const char* path) {
    const size_t length = std::strlen(path);
    const size_t kept = length < kPathCapacity ? length : kPathCapacity - 1;
    std::memcpy(out, path, kept);
    out[kept] = '\0';
}

bool HasDrive(const char* path) {
    return path[0] != '\0' && path[1] == ':';
}

const char* FileNamePart(const char* path) {
    if (const char* const backslash = lastCharacter(path, '\\')) return backslash + 1;
    if (const char* const colon = lastCharacter(path, ':')) return colon + 1;
    return path;
}

const char* FileExtension(const char* path) {
    const char* const name = FileNamePart(path);
    const char* const period = lastCharacter(name, '.');
    return period != nullptr ? period : name + std::strlen(name);
}

DWORD GetShortPath(const char* path, char* out, DWORD capacity) {
    if (out == path) return static_cast<DWORD>(std::strlen(path));
    return GetShortPathNameA(path, out, capacity);
}

ErrorCode GetSizeByPath(const char* path, uint64_t& size) {
    const OwnedFile file(CreateFileA(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? GetSizeOf(file.get(), size) : lastError();
}

DWORD GetFileSizeByPath(const char* path) {
    uint64_t size = 0;
    return GetSizeByPath(path, size) == 0 ? static_cast<DWORD>(size) : 0;
}

}  // namespace tidewell
