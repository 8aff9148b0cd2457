// One owner for every kind of system resource.
#ifndef TIDEWELL_BASE_OWNED_H
#define TIDEWELL_BASE_OWNED_H

#include <windows.h>

#include <utility>

namespace tidewell {

// Traits: `Value`, `none()` (the API's value for "nothing") and `close(Value)`.
template <typename Traits>
class Owned {
  public:
    using Value = typename Traits::Value;

    Owned() noexcept = default;
    explicit Owned(Value value) noexcept : value_(value) {}
    Owned(Owned&& other) noexcept : value_(std::exchange(other.value_, Traits::none())) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Owned() {
        if (value_ != Traits::none()) Traits::close(value_);
    }

    Value get() const noexcept { return value_; }
    explicit operator bool() const noexcept { return value_ != Traits::none(); }
    void reset() noexcept { *this = Owned(); }
    // The caller owns it from now on.
    Value release() noexcept { return std::exchange(value_, Traits::none()); }

  private:
    Value value_ = Traits::none();
};

struct FileTraits {
    using Value = HANDLE;
    static Value none() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Value file) noexcept { CloseHandle(file); }
};
using OwnedFile = Owned<FileTraits>;

struct PageTraits {
    using Value = void*;
    static Value none() noexcept { return nullptr; }
    static void close(Value pages) noexcept { VirtualFree(pages, 0, MEM_RELEASE); }
};

// Page-aligned, zero-filled memory for transfers.
class PageBuffer {
  public:
    // Empty when memory runs out.
    static PageBuffer allocate(SIZE_T bytes) noexcept {
        PageBuffer buffer;
        buffer.pages_ =
            Owned<PageTraits>(VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        return buffer;
    }
    BYTE* data() const noexcept { return static_cast<BYTE*>(pages_.get()); }
    explicit operator bool() const noexcept { return static_cast<bool>(pages_); }

  private:
    Owned<PageTraits> pages_;
};

}  // namespace tidewell

#endif
