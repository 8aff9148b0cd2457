#include "convert/binhex_blocks.h"

#include "base/file.h"

namespace tidewell {

ErrorCode ReadBinHexBlock(BinHexBlocks& blocks) {
    // Each page of the file into a page: others take the system longer to copy.
    const auto before = static_cast<DWORD>(blocks.position % kBinHexBlock);
    const uint64_t left = blocks.size - blocks.position;
    const DWORD length = left < kBinHexBlock - before ? static_cast<DWORD>(left) : kBinHexBlock - before;
    uint8_t* const memory = blocks.memory + before;
    blocks.next = memory;
    blocks.end = memory + length;
    blocks.position += length;
    return length == 0 ? 0 : ReadWhole(blocks.file, memory, length);
}

}  // namespace tidewell
