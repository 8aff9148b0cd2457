// The run lengths of BinHex 4.0 over its decoded bytes.
#ifndef TIDEWELL_CONVERT_BINHEX_STREAM_H
#define TIDEWELL_CONVERT_BINHEX_STREAM_H

#include "convert/binhex_text.h"

namespace tidewell {

// A place in the decoded bytes. A run that a section's end cuts goes on in the next section.
struct BinHexStream {
    BinHexText text;
    int last = -1;         // the byte produced last
    uint32_t runLeft = 0;  // copies of `last` still to come
};

// Produces `count` expanded bytes into `out` and runs them through `crc`, which may be null. ERROR_HANDLE_EOF
// when the stream ends before, ERROR_INVALID_DATA for a run of nothing and for a run marker without its
// count; else the text's error.
ErrorCode ReadRunLength(BinHexStream& stream, void* out, size_t count, uint16_t* crc);

// Whether the stream could hold `count` more expanded bytes, whatever they are.
bool CouldExpandTo(const BinHexStream& stream, uint64_t count);

}  // namespace tidewell

#endif
