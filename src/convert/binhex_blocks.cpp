#include "convert/binhex_blocks.h"

#include "base/file.h"

namespace tidewell {

ErrorCode ReadBinHexBlock(BinHexBlocks& blocks) {
    const uint64_t left = blocks.size - blocks.position;
    const DWORD length = left < kBinHexBlock ? static_cast<DWORD>(left) : kBinHexBlock;
    blocks.next = blocks.memory;
    blocks.end = blocks.memory + length;
    blocks.position += length;
    return length == 0 ? 0 : ReadWhole(blocks.file, blocks.memory, length);
}

const uint8_t* EndOfBinHexPiece(const uint8_t* next, const uint8_t* end) {
    return static_cast<size_t>(end - next) < kBinHexPiece ? end : next + kBinHexPiece;
}

}  // namespace tidewell
