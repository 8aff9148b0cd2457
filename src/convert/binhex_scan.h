// The first pass over a BinHex file: where its text is, and whether it is text throughout.
#ifndef TIDEWELL_CONVERT_BINHEX_SCAN_H
#define TIDEWELL_CONVERT_BINHEX_SCAN_H

#include "convert/binhex_blocks.h"

namespace tidewell {

// What there is to decode.
struct BinHexExtent {
    uint64_t start = 0;    // of what follows the ":" that begins the text, in bytes of the file
    uint64_t decoded = 0;  // the bytes that the text stands for
    // ERROR_INVALID_DATA without a marker or the ":" behind it, and for a character that is none of the
    // alphabet; ERROR_HANDLE_EOF for a text without the ":" that ends it.
    ErrorCode error = 0;
};

// Reads the whole of a file of `size` bytes, whatever it holds. Returns the system's error, or
// ERROR_HANDLE_EOF when it is shorter.
ErrorCode ScanBinHexFile(HANDLE file, uint64_t size, BinHexMemory& memory, BinHexExtent& extent);

// The position right after the first start marker; null without one.
const uint8_t* FindBinHexStart(const uint8_t* buffer, size_t length);

}  // namespace tidewell

#endif
