// The characters of BinHex 4.0 as their values, and the values as bytes.
#ifndef TIDEWELL_CONVERT_BINHEX_VALUES_H
#define TIDEWELL_CONVERT_BINHEX_VALUES_H

#include <cstddef>
#include <cstdint>

namespace tidewell {

// How many bytes behind those that they give the two functions may write to.
constexpr size_t kBinHexOverrun = 32;

// Stores the value of each character from `next` on, 0 to 63, at `out`, which goes ahead; blanks are passed
// over. Returns where it stopped: `end`, or a character that is neither. `out` lies outside the text.
const uint8_t* TakeBinHexValues(const uint8_t* next, const uint8_t* end, uint8_t*& out);

// Three bytes of each group of four values, in the place of the first groups. The values behind the groups
// stay.
void PackBinHexValues(uint8_t* values, size_t groups);

}  // namespace tidewell

#endif
