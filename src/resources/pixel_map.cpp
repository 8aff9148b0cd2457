#include "resources/pixel_map.h"

#include "resources/pixel_rows.h"

namespace tidewell {

namespace {

// ---- As they stand in a resource; what is a handle in memory is of no use here ----

struct Bounds {
    Be<uint16_t> top, left, bottom, right;  // signed
};
static_assert(sizeof(Bounds) == 8);

struct BitMap {
    Be<uint32_t> base;
    Be<uint16_t> flagsAndRowBytes;
    Bounds bounds;
};
static_assert(sizeof(BitMap) == 14);

struct PixelMap {
    BitMap bitMap;
    Be<uint16_t> version;
    Be<uint16_t> packing;
    Be<uint32_t> packedSize;
    Be<uint32_t> horizontalResolution, verticalResolution;
    Be<uint16_t> pixelType;
    Be<uint16_t> depth;  // bits a pixel
    Be<uint16_t> componentCount, componentSize;
    Be<uint32_t> planeBytes;
    Be<uint32_t> colorTable;  // in a pattern, bytes from the start of the resource
    Be<uint32_t> reserved;
};
static_assert(sizeof(PixelMap) == 50 && offsetof(PixelMap, colorTable) == 42);

// Behind it: the mask's rows, the icon's rows in black and white, the color table, the rows of pixels.
struct ColorIcon {
    PixelMap pixels;
    BitMap mask;
    BitMap blackAndWhite;
    Be<uint32_t> data;
};
static_assert(sizeof(ColorIcon) == 82);

struct PixelPattern {
    Be<uint16_t> type;
    Be<uint32_t> pixelMap;  // bytes from the start of the resource
    Be<uint32_t> pixels;    // likewise
    Be<uint32_t> expanded;
    Be<uint16_t> expandedValid;
    Be<uint32_t> expandedMap;
    uint8_t blackAndWhite[8];
};
static_assert(sizeof(PixelPattern) == 28);

enum PatternType : uint16_t { kOldPattern = 0, kColorPattern = 1, kMixedColor = 2 };

// ---- Reading ----

constexpr uint16_t kRowBytesBits = 0x3FFF;

unsigned rowBytesOf(const BitMap& map) {
    return map.flagsAndRowBytes & kRowBytesBits;
}

// 0 when the end is before the start.
unsigned distance(uint16_t start, uint16_t end) {
    const int signedDistance = static_cast<int16_t>(end) - static_cast<int16_t>(start);
    return signedDistance > 0 ? static_cast<unsigned>(signedDistance) : 0;
}

unsigned heightOf(const BitMap& map) {
    return distance(map.bounds.top, map.bounds.bottom);
}

uint64_t sizeOf(const BitMap& map) {
    return uint64_t{rowBytesOf(map)} * heightOf(map);
}

// False when the rows do not hold the pixels, or the data does not hold the rows.
bool findRows(const DataView& data, uint64_t offset, const BitMap& map, unsigned depth, PixelRows& rows) {
    rows = {data.At(offset, sizeOf(map)), rowBytesOf(map), distance(map.bounds.left, map.bounds.right),
            heightOf(map), depth};
    return rows.bytes != nullptr && uint64_t{rows.width} * depth <= uint64_t{rows.rowBytes} * 8;
}

bool findPixels(const DataView& data, uint64_t offset, const PixelMap& map, PixelRows& rows) {
    const unsigned depth = map.depth;
    const bool indexed = depth == 1 || depth == 2 || depth == 4 || depth == 8;
    return indexed && findRows(data, offset, map.bitMap, depth, rows);
}

Picture drawBlackAndWhite(const PixelPattern& pattern) {
    return DrawPixels({pattern.blackAndWhite, 1, 8, 8, 1}, StandardColors(1), {});
}

}  // namespace

Picture DecodeColorIcon(const DataView& data) {
    const auto* const icon = data.RecordAt<ColorIcon>(0);
    if (icon == nullptr) return {};
    PixelRows mask;
    const bool masked = sizeOf(icon->mask) != 0;
    if (masked && !findRows(data, sizeof *icon, icon->mask, 1, mask)) return {};
    const uint64_t tableOffset = sizeof *icon + sizeOf(icon->mask) + sizeOf(icon->blackAndWhite);
    ColorTable table;
    const uint64_t tableSize = ReadColorTable(data, tableOffset, table);
    PixelRows pixels;
    if (tableSize == 0 || !findPixels(data, tableOffset + tableSize, icon->pixels, pixels)) return {};
    return DrawPixels(pixels, table, mask);
}

Picture DecodePixelPattern(const DataView& data) {
    const auto* const pattern = data.RecordAt<PixelPattern>(0);
    if (pattern == nullptr || pattern->type > kMixedColor) return {};
    if (pattern->type != kColorPattern) return drawBlackAndWhite(*pattern);
    const auto* const map = data.RecordAt<PixelMap>(pattern->pixelMap);
    ColorTable table;
    PixelRows pixels;
    if (map == nullptr || ReadColorTable(data, map->colorTable, table) == 0) return {};
    if (!findPixels(data, pattern->pixels, *map, pixels)) return {};
    return DrawPixels(pixels, table, {});
}

}  // namespace tidewell
