#include "convert/binhex_scan.h"

#include "convert/binhex_alphabet.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr char kEnglishMarker[] = "(This file must be converted with BinHex 4.0)";
static_assert(sizeof kEnglishMarker - 1 == 45);

// "（このファイルは BinHex4.0 で変換される必要があります。）" in Shift-JIS.
constexpr char kJapaneseMarker[] =
    "\x81\x69\x82\xB1\x82\xCC\x83\x74\x83\x40\x83\x43\x83\x8B\x82\xCD\x20"
    "BinHex4.0"
    "\x20\x82\xC5\x95\xCF\x8A\xB7\x82\xB3\x82\xEA\x82\xE9\x95\x4B\x97\x76\x82\xAA\x82\xA0\x82\xE8\x82\xDC"
    "\x82\xB7\x81\x42\x81\x6A";
static_assert(sizeof kJapaneseMarker - 1 == 57);

// As much of a marker as a block may end with and not hold all of it.
constexpr size_t kBegunMarker = sizeof kJapaneseMarker - 2;
static_assert(kBegunMarker <= BinHexMemory::kPage);

enum class Place { BeforeMarker, BeforeText, InText, BehindText };

struct Scan {
    BinHexMemory& memory;
    Place place = Place::BeforeMarker;
    size_t kept = 0;  // bytes right before the block: the end of the one before
    uint64_t characters = 0;
};

template <size_t size>
bool startsWith(const uint8_t* text, const uint8_t* end, const char (&marker)[size]) {
    constexpr size_t kLength = size - 1;
    return *text == static_cast<uint8_t>(marker[0]) && static_cast<size_t>(end - text) >= kLength &&
           std::memcmp(text, marker, kLength) == 0;
}

const uint8_t* skipToMarkersEnd(Scan& scan, const uint8_t* next, const uint8_t* end) {
    const uint8_t* const from = next - scan.kept;
    const auto length = static_cast<size_t>(end - from);
    if (const uint8_t* const found = FindBinHexStart(from, length)) {
        scan.place = Place::BeforeText;
        return found;
    }
    scan.kept = length < kBegunMarker ? length : kBegunMarker;
    std::memmove(scan.memory.block() - scan.kept, end - scan.kept, scan.kept);
    return end;
}

const uint8_t* skipToText(Scan& scan, const uint8_t* next, const uint8_t* end, BinHexExtent& extent) {
    while (next != end && kBinHexMeanings.of[*next] == kBinHexBlank)
        ++next;
    if (next != end) {
        const bool begins = *next++ == ':';
        scan.place = begins ? Place::InText : Place::BehindText;
        extent.error = begins ? 0 : ERROR_INVALID_DATA;
    }
    return next;
}

void passText(Scan& scan, const uint8_t* next, const uint8_t* end, BinHexExtent& extent) {
    while (next != end) {
        const uint8_t* const piece = EndOfBinHexPiece(next, end);
        uint8_t* out = scan.memory.values;
        next = TakeBinHexValues(next, piece, out);
        scan.characters += static_cast<uint64_t>(out - scan.memory.values);
        if (next == piece) continue;
        extent.error = *next == ':' ? 0 : ERROR_INVALID_DATA;
        scan.place = Place::BehindText;
        return;
    }
}

void scanBlock(Scan& scan, const BinHexBlocks& block, BinHexExtent& extent) {
    const uint8_t* next = block.next;
    if (scan.place == Place::BeforeMarker) next = skipToMarkersEnd(scan, next, block.end);
    if (scan.place == Place::BeforeText) {
        next = skipToText(scan, next, block.end, extent);
        extent.start = block.position - static_cast<uint64_t>(block.end - next);
    }
    if (scan.place == Place::InText) passText(scan, next, block.end, extent);
}

}  // namespace

const uint8_t* FindBinHexStart(const uint8_t* buffer, size_t length) {
    const uint8_t* const end = buffer + length;
    for (const uint8_t* at = buffer; at != end; ++at) {
        if (startsWith(at, end, kEnglishMarker)) return at + sizeof kEnglishMarker - 1;
        if (startsWith(at, end, kJapaneseMarker)) return at + sizeof kJapaneseMarker - 1;
    }
    return nullptr;
}

ErrorCode ScanBinHexFile(HANDLE file, uint64_t size, BinHexMemory& memory, BinHexExtent& extent) {
    Scan scan = {memory};
    BinHexBlocks blocks = {file, 0, size, memory.block(), nullptr, nullptr};
    for (;;) {
        if (const ErrorCode error = ReadBinHexBlock(blocks)) return error;
        if (blocks.next == blocks.end) break;
        scanBlock(scan, blocks, extent);
    }
    if (scan.place == Place::BeforeMarker || scan.place == Place::BeforeText)
        extent.error = ERROR_INVALID_DATA;
    if (scan.place == Place::InText) extent.error = ERROR_HANDLE_EOF;
    // Four characters are three bytes; each of a group left open gives a byte, or begins one.
    extent.decoded = scan.characters / 4 * 3 + scan.characters % 4;
    return 0;
}

}  // namespace tidewell
