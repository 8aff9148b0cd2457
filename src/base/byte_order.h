// Numbers in the byte order of a file format, whatever the processor: arrays of bytes, so records of them
// need no packing and no cast.
#ifndef TIDEWELL_BASE_BYTE_ORDER_H
#define TIDEWELL_BASE_BYTE_ORDER_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace tidewell {

enum class ByteOrder { big, little };

template <typename T, ByteOrder order>
class OrderedNumber {
    static_assert(std::is_unsigned_v<T>);

  public:
    OrderedNumber() noexcept = default;
    OrderedNumber(T value) noexcept { *this = value; }  // NOLINT(google-explicit-constructor): a number
    OrderedNumber& operator=(T value) noexcept {
        for (size_t i = 0; i < sizeof(T); ++i)
            bytes_[i] = static_cast<uint8_t>(value >> shiftOf(i));
        return *this;
    }
    operator T() const noexcept {  // NOLINT(google-explicit-constructor): it is a number
        T value = 0;
        for (size_t i = 0; i < sizeof(T); ++i)
            value = static_cast<T>(value | static_cast<T>(static_cast<T>(bytes_[i]) << shiftOf(i)));
        return value;
    }

  private:
    static constexpr unsigned shiftOf(size_t i) noexcept {
        return static_cast<unsigned>(8 * (order == ByteOrder::big ? sizeof(T) - 1 - i : i));
    }
    uint8_t bytes_[sizeof(T)];
};

template <typename T>
using Be = OrderedNumber<T, ByteOrder::big>;
template <typename T>
using Le = OrderedNumber<T, ByteOrder::little>;

static_assert(sizeof(Be<uint32_t>) == 4 && alignof(Be<uint64_t>) == 1);

}  // namespace tidewell

#endif
