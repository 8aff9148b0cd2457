// Little-endian numbers in records of any alignment.
#ifndef TIDEWELL_PLATFORM_PC_LITTLE_ENDIAN_H
#define TIDEWELL_PLATFORM_PC_LITTLE_ENDIAN_H

#include <cstdint>

namespace pc {

class Little16 {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): it is a number
    operator uint16_t() const { return static_cast<uint16_t>(bytes_[0] | bytes_[1] << 8); }
    Little16& operator=(uint16_t value) {
        bytes_[0] = static_cast<uint8_t>(value);
        bytes_[1] = static_cast<uint8_t>(value >> 8);
        return *this;
    }

  private:
    uint8_t bytes_[2];
};
static_assert(sizeof(Little16) == 2 && alignof(Little16) == 1);

class Little32 {
  public:
    // NOLINTNEXTLINE(google-explicit-constructor): it is a number
    operator uint32_t() const { return uint32_t{high_} << 16 | low_; }
    Little32& operator=(uint32_t value) {
        low_ = static_cast<uint16_t>(value);
        high_ = static_cast<uint16_t>(value >> 16);
        return *this;
    }

  private:
    Little16 low_;
    Little16 high_;
};
static_assert(sizeof(Little32) == 4 && alignof(Little32) == 1);

}  // namespace pc

#endif
