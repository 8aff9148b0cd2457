// The text layers of BinHex 4.0: where it begins in a file, and six bits a character.
#ifndef TIDEWELL_CONVERT_BINHEX_TEXT_H
#define TIDEWELL_CONVERT_BINHEX_TEXT_H

#include "base/error_code.h"

#include <cstdint>

namespace tidewell {

// The position right after the first start marker and the blanks that follow it; null without a marker.
const uint8_t* FindBinHexStart(const uint8_t* buffer, size_t length);

// Decodes, in place, the text that begins with ":" and ends with the next one; blanks are passed over.
// `produced` receives the number of bytes. ERROR_INVALID_DATA for any other character, ERROR_HANDLE_EOF for a
// text without its end.
ErrorCode DecodeBinHexText(uint8_t* text, size_t length, size_t& produced);

}  // namespace tidewell

#endif
