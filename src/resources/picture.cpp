#include "resources/picture.h"

#include "resources/pixel_map.h"
#include "resources/pixel_rows.h"

namespace tidewell {

namespace {

constexpr ResourceType kIconList = {{'I', 'C', 'N', '#'}};
constexpr ResourceType kSmallIconList = {{'i', 'c', 's', '#'}};
constexpr ResourceType kCursor = {{'C', 'U', 'R', 'S'}};
constexpr ResourceType kColorIcon = {{'c', 'i', 'c', 'n'}};
constexpr ResourceType kPixelPattern = {{'p', 'p', 'a', 't'}};
constexpr ResourceType kNoMask = {};

// Nothing but rows of pixels in the system's colors, from the start of the data.
struct BitmapFormat {
    ResourceType type;
    ResourceType maskType;  // has the mask behind its own rows of 1 bit a pixel
    unsigned side;          // pixels
    unsigned depth;         // bits a pixel

    bool hasOwnMask() const { return maskType == type; }
    bool hasMaskBeside() const { return maskType != type && maskType != kNoMask; }
    uint32_t maskSize() const { return side * side / 8; }
    uint32_t rowsSize() const { return maskSize() * depth; }
    uint32_t dataSize() const { return rowsSize() + (hasOwnMask() ? maskSize() : 0); }
};

constexpr BitmapFormat kBitmapFormats[] = {
    {{{'I', 'C', 'O', 'N'}}, kNoMask, 32, 1},         // icon
    {kIconList, kIconList, 32, 1},                    // icon with its mask
    {{{'i', 'c', 'l', '4'}}, kIconList, 32, 4},       // the same in 16 colors
    {{{'i', 'c', 'l', '8'}}, kIconList, 32, 8},       // and in 256
    {kSmallIconList, kSmallIconList, 16, 1},          // small icon with its mask
    {{{'i', 'c', 's', '4'}}, kSmallIconList, 16, 4},  // the same in 16 colors
    {{{'i', 'c', 's', '8'}}, kSmallIconList, 16, 8},  // and in 256
    {kCursor, kCursor, 16, 1},                        // cursor with its mask
    {{{'P', 'A', 'T', ' '}}, kNoMask, 8, 1},          // pattern
};

// The largest picture with a color table takes half of it, its masks and rows with gaps a part of the rest.
constexpr uint32_t kMostColorData = 2 * kMostPictureSide * kMostPictureSide;

const BitmapFormat* findBitmapFormat(const ResourceType& type) {
    for (const BitmapFormat& format : kBitmapFormats) {
        if (format.type == type) return &format;
    }
    return nullptr;
}

Picture drawBitmap(const BitmapFormat& format, const uint8_t* rows, const uint8_t* mask) {
    const auto rowsOf = [&](const uint8_t* bytes, unsigned depth) {
        return PixelRows{bytes, format.side * depth / 8, format.side, format.side, depth};
    };
    return DrawPixels(rowsOf(rows, format.depth), StandardColors(format.depth), rowsOf(mask, 1));
}

// Black outside of its mask inverts what is on the screen, which is mostly white.
Picture drawCursor(const BitmapFormat& format, const uint8_t* rows, const uint8_t* mask) {
    uint8_t covered[16 * 16 / 8];
    for (size_t i = 0; i < format.maskSize(); ++i)
        covered[i] = rows[i] | mask[i];
    return drawBitmap(format, rows, covered);
}

Picture decodeBitmap(const BitmapFormat& format, const DataView& data, const DataView& beside) {
    const uint8_t* const rows = data.At(0, format.dataSize());
    if (rows == nullptr) return {};
    if (format.hasOwnMask()) {
        const uint8_t* const mask = rows + format.rowsSize();
        return format.type == kCursor ? drawCursor(format, rows, mask) : drawBitmap(format, rows, mask);
    }
    const bool besideIt = format.hasMaskBeside();
    return drawBitmap(format, rows, besideIt ? beside.At(format.maskSize(), format.maskSize()) : nullptr);
}

// What lies behind an entry that cannot be read is most likely outside the fork as well, and there may be
// 65,536 of them.
bool findReference(ResourceForkReader& reader, const TypeEntry& type, int id, ReferenceEntry& reference) {
    for (unsigned i = 0; i <= type.lastIndex; ++i) {
        if (!reader.ReadReferenceEntry(type, static_cast<uint16_t>(i), reference)) return false;
        if (reference.id() == id) return true;
    }
    return false;
}

bool findResource(ResourceForkReader& reader, const ResourceType& type, int id, ReferenceEntry& reference) {
    TypeEntry entry;
    for (unsigned i = 0; i < reader.TypeCount(); ++i) {
        if (!reader.ReadTypeEntry(static_cast<uint16_t>(i), entry)) return false;
        if (entry.type == type) return findReference(reader, entry, id, reference);
    }
    return false;
}

}  // namespace

bool IsPictureType(const ResourceType& type) {
    return findBitmapFormat(type) != nullptr || type == kColorIcon || type == kPixelPattern;
}

Picture DecodePicture(const ResourceType& type, const uint8_t* data, uint32_t length, const uint8_t* mask,
                      uint32_t maskLength) {
    const DataView view(data, length);
    if (type == kColorIcon) return DecodeColorIcon(view);
    if (type == kPixelPattern) return DecodePixelPattern(view);
    const BitmapFormat* const format = findBitmapFormat(type);
    if (format == nullptr) return {};
    return decodeBitmap(*format, view, {mask, mask != nullptr ? maskLength : 0});
}

Picture ReadPicture(ResourceForkReader& reader, const TypeEntry& type, const ReferenceEntry& reference) {
    if (!IsPictureType(type.type)) return {};
    const BitmapFormat* const format = findBitmapFormat(type.type);
    uint32_t length = format != nullptr ? format->dataSize() : kMostColorData;
    const PageBuffer data = reader.ReadData(reference, length);
    if (!data) return {};
    PageBuffer mask;
    uint32_t maskLength = 0;
    ReferenceEntry maskReference;
    if (format != nullptr && format->hasMaskBeside() &&
        findResource(reader, format->maskType, reference.id(), maskReference)) {
        maskLength = 2 * format->maskSize();
        mask = reader.ReadData(maskReference, maskLength);
        if (!mask) return {};
    }
    return DecodePicture(type.type, data.data(), length, mask.data(), maskLength);
}

}  // namespace tidewell
