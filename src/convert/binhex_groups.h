// Groups of four BinHex characters without a blank in them, as most of a file is.
#ifndef TIDEWELL_CONVERT_BINHEX_GROUPS_H
#define TIDEWELL_CONVERT_BINHEX_GROUPS_H

#include <cstdint>

namespace tidewell {

// Decodes the groups from `next` on, three bytes for each, up to a character that is none of the alphabet.
// Returns where it stopped reading; `out`, which goes ahead, may lie before `next` in the same text.
const uint8_t* DecodeBinHexGroups(const uint8_t* next, const uint8_t* end, uint8_t*& out);

}  // namespace tidewell

#endif
