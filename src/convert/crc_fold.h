// The CRC of MacBinary and BinHex over many bytes at once, by products without carries.
#ifndef TIDEWELL_CONVERT_CRC_FOLD_H
#define TIDEWELL_CONVERT_CRC_FOLD_H

#include <cstddef>
#include <cstdint>

namespace tidewell {

constexpr size_t kFoldRemainder = 16;  // bytes

// Folds as many of `bytes` as it can, which `crc` precedes, into a remainder whose CRC from 0 is that of all
// of them. Returns how many it took: none when there are too few, or the processor cannot.
size_t FoldCrc(uint16_t crc, const uint8_t* bytes, size_t count, uint8_t remainder[kFoldRemainder]);

}  // namespace tidewell

#endif
