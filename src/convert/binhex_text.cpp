#include "convert/binhex_text.h"

#include "base/file.h"

#include <cstring>

namespace tidewell {

namespace {

// Decodes the groups of `count` values. What is left of them waits for the next block, unless it is the end:
// then the missing bits are zero, and a byte that a last character only begins counts.
void decodeGroups(BinHexText& text, size_t count) {
    const size_t left = count % 4;
    size_t groups = count / 4;
    size_t produced = groups * 3;
    if (text.ended && left != 0) {
        std::memset(text.values + count, 0, 4 - left);
        ++groups;
        produced += left;
    }
    PackBinHexValues(text.values, groups);
    text.next = text.values;
    text.end = text.values + produced;
    text.begun = text.values + 4 * groups;
    text.begunCount = text.ended ? 0 : left;
    text.undecoded -= produced < text.undecoded ? produced : text.undecoded;
}

ErrorCode decodePiece(BinHexText& text) {
    BinHexBlocks& blocks = text.blocks;
    if (blocks.next == blocks.end) {
        const ErrorCode error = ReadBinHexBlock(blocks);
        if (error != 0) return error;
        if (blocks.next == blocks.end) return ERROR_HANDLE_EOF;
    }
    const uint8_t* const end = EndOfBinHexPiece(blocks.next, blocks.end);
    std::memmove(text.values, text.begun, text.begunCount);
    uint8_t* out = text.values + text.begunCount;
    blocks.next = TakeBinHexValues(blocks.next, end, out);
    text.ended = blocks.next != end;
    if (text.ended && *blocks.next != ':') return ERROR_INVALID_DATA;
    decodeGroups(text, static_cast<size_t>(out - text.values));
    return 0;
}

}  // namespace

ErrorCode OpenBinHexText(HANDLE file, uint64_t size, const BinHexExtent& extent, BinHexMemory& memory,
                         BinHexText& text) {
    if (const ErrorCode error = SeekTo(file, extent.start)) return error;
    text.blocks = {file, extent.start, size, memory.block(), nullptr, nullptr};
    text.values = memory.values;
    text.next = text.end = text.begun = memory.values;
    text.undecoded = extent.decoded;
    return 0;
}

ErrorCode DecodeBinHexText(BinHexText& text) {
    while (text.next == text.end && !text.ended) {
        if (const ErrorCode error = decodePiece(text)) return error;
    }
    return 0;
}

}  // namespace tidewell
