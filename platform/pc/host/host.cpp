// What is the same on every host.
#include "pc/host/host.h"

#include <windows.h>

#include <limits>

namespace pc {

namespace {

constexpr uint64_t kLargestFile = std::numeric_limits<int64_t>::max();

}  // namespace

std::string hostJoin(const std::string& folder, std::string_view name) {
    std::string path = folder;
    if (path.empty() || path.back() != '/') path += '/';
    return path.append(name);
}

Error HostFile::write(uint64_t offset, const void* buffer, size_t count) {
    if (offset > kLargestFile || count > kLargestFile - offset) return ERROR_FILE_TOO_LARGE;
    if (count == 0) return 0;
    if (!space_->limited) return writeAll(offset, buffer, count);
    uint64_t before = 0;
    Error error = size(before);
    if (error != 0) return error;
    const uint64_t growth = offset + count > before ? offset + count - before : 0;
    if (growth > space_->left) return ERROR_DISK_FULL;
    error = writeAll(offset, buffer, count);
    if (error == 0) space_->left -= growth;
    return error;
}

Error HostFile::setSize(uint64_t bytes) {
    if (bytes > kLargestFile) return ERROR_FILE_TOO_LARGE;
    if (!space_->limited) return resize(bytes);
    uint64_t before = 0;
    Error error = size(before);
    if (error != 0) return error;
    if (bytes > before && bytes - before > space_->left) return ERROR_DISK_FULL;
    error = resize(bytes);
    if (error == 0) space_->left += before - bytes;  // modulo 2^64: may shrink or grow
    return error;
}

}  // namespace pc
