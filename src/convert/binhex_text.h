// The text of a BinHex 4.0 file as bytes, six bits a character.
#ifndef TIDEWELL_CONVERT_BINHEX_TEXT_H
#define TIDEWELL_CONVERT_BINHEX_TEXT_H

#include "convert/binhex_scan.h"

namespace tidewell {

struct BinHexText {
    BinHexBlocks blocks;
    uint8_t* values;        // of the block's characters; the bytes take their place
    const uint8_t* next;    // the bytes that nobody has taken yet ...
    const uint8_t* end;     // ... end here
    const uint8_t* begun;   // the values of a group that the block only begins
    size_t begunCount = 0;  // up to 3
    uint64_t undecoded;     // bytes behind `end`
    bool ended = false;     // the text's last byte is before `end`
};

// Goes to the start of the text for its decoding. The system's error.
ErrorCode OpenBinHexText(HANDLE file, uint64_t size, const BinHexExtent& extent, BinHexMemory& memory,
                         BinHexText& text);

// Decodes the next bytes of a text that has none left; at its end, `next` stays `end`. The file was looked
// through before, so an error is one of reading it, or tells of a file that has changed since:
// ERROR_INVALID_DATA for a character that is none, ERROR_HANDLE_EOF for a text without its end.
ErrorCode DecodeBinHexText(BinHexText& text);

}  // namespace tidewell

#endif
