// Groups of four BinHex characters, as fast as the processor can.
#ifndef TIDEWELL_CONVERT_BINHEX_GROUPS_H
#define TIDEWELL_CONVERT_BINHEX_GROUPS_H

#include <cstdint>

namespace tidewell {

// Decodes groups from `next` on, three bytes for each; single blanks may be passed over. Returns where it
// stopped reading, at the latest before a group with another character that is none of the alphabet. `out`,
// which goes ahead, may lie before `next` in the same text.
const uint8_t* DecodeBinHexGroups(const uint8_t* next, const uint8_t* end, uint8_t*& out);

}  // namespace tidewell

#endif
