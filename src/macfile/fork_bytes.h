// The bytes of a resource fork: a file, a part of one (of a MacBinary file), or memory.
#ifndef TIDEWELL_MACFILE_FORK_BYTES_H
#define TIDEWELL_MACFILE_FORK_BYTES_H

#include "base/error_code.h"
#include "base/owned.h"

#include <cstdint>

namespace tidewell {

class ForkBytes {
  public:
    // None: closed.
    ForkBytes() noexcept = default;
    // The whole of a file, whatever its size is when it is read.
    explicit ForkBytes(OwnedFile file) noexcept;
    // `size` bytes of a file from `start` on, or what there is of them.
    ForkBytes(OwnedFile file, uint64_t start, uint64_t size) noexcept;
    // `size` bytes of memory.
    ForkBytes(PageBuffer memory, uint64_t size) noexcept;

    explicit operator bool() const noexcept;

    // The length of the fork, in bytes. The system's error.
    ErrorCode GetSize(uint64_t& size) const noexcept;

    // Reads up to `count` bytes at `position`; `got` is fewer only at the end of the fork. The system's
    // error.
    ErrorCode ReadAt(uint64_t position, void* buffer, DWORD count, DWORD& got) noexcept;

    // Reads `count` bytes. ERROR_HANDLE_EOF when there are fewer, else the system's error.
    ErrorCode ReadWholeAt(uint64_t position, void* buffer, DWORD count) noexcept;

  private:
    OwnedFile file_;
    PageBuffer memory_;
    uint64_t start_ = 0;
    uint64_t size_ = 0;
    bool whole_ = false;  // the file is the fork
};

}  // namespace tidewell

#endif
