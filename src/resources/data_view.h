// The bytes of a resource, whose own offsets and sizes cannot be trusted.
#ifndef TIDEWELL_RESOURCES_DATA_VIEW_H
#define TIDEWELL_RESOURCES_DATA_VIEW_H

#include <cstdint>

namespace tidewell {

class DataView {
  public:
    DataView(const uint8_t* data, uint32_t size) noexcept : data_(data), size_(size) {}

    // `count` bytes from `offset` on; null when the data ends before.
    const uint8_t* At(uint64_t offset, uint64_t count) const noexcept {
        return offset <= size_ && count <= size_ - offset ? data_ + offset : nullptr;
    }

    // A record of numbers in the byte order of the Mac.
    template <typename Record>
    const Record* RecordAt(uint64_t offset) const noexcept {
        static_assert(alignof(Record) == 1);
        return reinterpret_cast<const Record*>(At(offset, sizeof(Record)));
    }

  private:
    const uint8_t* data_;
    uint32_t size_;
};

}  // namespace tidewell

#endif
