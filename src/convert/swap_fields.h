// A record between file order and host order.
#ifndef TIDEWELL_CONVERT_SWAP_FIELDS_H
#define TIDEWELL_CONVERT_SWAP_FIELDS_H

#include <cstdint>

namespace tidewell {

// Walks `widths`, the bytes of each field up to a final 0: fields of 2 and 4 bytes are reversed, every other
// one is copied. `record` and `destination` may be the same. Its own inverse.
void SwapFields(const void* record, void* destination, const uint8_t* widths);

}  // namespace tidewell

#endif
