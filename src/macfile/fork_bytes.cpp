#include "macfile/fork_bytes.h"

#include "base/file.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tidewell {

ForkBytes::ForkBytes(OwnedFile file) noexcept : file_(std::move(file)), whole_(true) {}

ForkBytes::ForkBytes(OwnedFile file, uint64_t start, uint64_t size) noexcept
    : file_(std::move(file)), start_(start), size_(size) {}

ForkBytes::ForkBytes(PageBuffer memory, uint64_t size) noexcept : memory_(std::move(memory)), size_(size) {}

ForkBytes::operator bool() const noexcept {
    return file_ || memory_;
}

ErrorCode ForkBytes::GetSize(uint64_t& size) const noexcept {
    if (!*this) return ERROR_INVALID_HANDLE;
    if (memory_) {
        size = size_;
        return 0;
    }
    uint64_t fileSize = 0;
    if (const ErrorCode error = GetSizeOf(file_.get(), fileSize)) return error;
    size = whole_ ? fileSize : std::min(size_, fileSize - std::min(start_, fileSize));
    return 0;
}

ErrorCode ForkBytes::ReadAt(uint64_t position, void* buffer, DWORD count, DWORD& got) noexcept {
    got = 0;
    if (!*this) return ERROR_INVALID_HANDLE;
    if (!whole_) {
        if (position >= size_) return 0;
        count = static_cast<DWORD>(std::min<uint64_t>(count, size_ - position));
    }
    if (memory_) {
        std::memcpy(buffer, memory_.data() + position, count);
        got = count;
        return 0;
    }
    if (const ErrorCode error = SeekTo(file_.get(), start_ + position)) return error;
    return ReadFile(file_.get(), buffer, count, &got, nullptr) ? 0 : lastError();
}

ErrorCode ForkBytes::ReadWholeAt(uint64_t position, void* buffer, DWORD count) noexcept {
    DWORD got = 0;
    if (const ErrorCode error = ReadAt(position, buffer, count, got)) return error;
    return got == count ? 0 : ERROR_HANDLE_EOF;
}

}  // namespace tidewell
