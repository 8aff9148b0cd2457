// A BinHex file block by block: no more of it is in memory at any time.
#ifndef TIDEWELL_CONVERT_BINHEX_BLOCKS_H
#define TIDEWELL_CONVERT_BINHEX_BLOCKS_H

#include "base/error_code.h"
#include "base/owned.h"
#include "convert/binhex_values.h"

#include <cstddef>
#include <cstdint>

namespace tidewell {

// Small enough for the processor to have a block at hand from its reading to its writing.
constexpr DWORD kBinHexBlock = 128 * 1024;

// As many characters of a block as are decoded at a time, for which the nearest memory is large enough.
constexpr size_t kBinHexPiece = size_t{16} * 1024;

// All the memory that an extraction takes, whatever the sizes of the file and its forks.
struct BinHexMemory {
    static constexpr size_t kPage = 4096;

    uint8_t text[kPage + kBinHexBlock];    // what is left over of the block before may stand before a block
    uint8_t values[kBinHexPiece + kPage];  // of the text's characters
    uint8_t fork[kBinHexBlock];

    uint8_t* block() { return text + kPage; }
};
static_assert(kBinHexOverrun + 3 <= BinHexMemory::kPage);

// An open file, read on from where it stands.
struct BinHexBlocks {
    HANDLE file;
    uint64_t position;  // of the file, in bytes
    uint64_t size;      // bytes
    uint8_t* memory;

    // What was read last.
    const uint8_t* next;
    const uint8_t* end;
};

// Reads the next block, the last of which may be shorter. At the end of the file, `next` is `end`. The
// system's error, or ERROR_HANDLE_EOF when the file is shorter than it was.
ErrorCode ReadBinHexBlock(BinHexBlocks& blocks);

// Where the piece that begins at `next` ends: at the block's end at the latest.
const uint8_t* EndOfBinHexPiece(const uint8_t* next, const uint8_t* end);

}  // namespace tidewell

#endif
