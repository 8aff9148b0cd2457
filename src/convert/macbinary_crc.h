// The 16-bit CRC of MacBinary and BinHex: polynomial 0x1021, initial value 0, most significant bit first, no
// reflection and no final inversion (CRC-16/XMODEM).
#ifndef TIDEWELL_CONVERT_MACBINARY_CRC_H
#define TIDEWELL_CONVERT_MACBINARY_CRC_H

#include <cstddef>
#include <cstdint>

namespace tidewell {

uint16_t MacBinaryCrc(const void* bytes, size_t count);

// The CRC of what gave `crc` followed by `bytes`.
uint16_t ContinueCrc(uint16_t crc, const void* bytes, size_t count);

}  // namespace tidewell

#endif
