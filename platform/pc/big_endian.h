// Big-endian numbers in bytes of any alignment.
#ifndef TIDEWELL_PLATFORM_PC_BIG_ENDIAN_H
#define TIDEWELL_PLATFORM_PC_BIG_ENDIAN_H

#include <cstdint>

namespace pc {

inline uint16_t loadBig16(const uint8_t* bytes) {
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

inline uint32_t loadBig32(const uint8_t* bytes) {
    return uint32_t{loadBig16(bytes)} << 16 | loadBig16(bytes + 2);
}

inline void storeBig16(uint8_t* bytes, uint16_t value) {
    bytes[0] = static_cast<uint8_t>(value >> 8);
    bytes[1] = static_cast<uint8_t>(value);
}

inline void storeBig32(uint8_t* bytes, uint32_t value) {
    storeBig16(bytes, static_cast<uint16_t>(value >> 16));
    storeBig16(bytes + 2, static_cast<uint16_t>(value));
}

}  // namespace pc

#endif
