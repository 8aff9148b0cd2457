#include "resources/color_table.h"

namespace tidewell {

namespace {

constexpr Pixel opaque(unsigned red, unsigned green, unsigned blue) {
    return {static_cast<uint8_t>(red), static_cast<uint8_t>(green), static_cast<uint8_t>(blue), 255};
}

constexpr ColorTable kOneBit = {{opaque(255, 255, 255), opaque(0, 0, 0)}};

constexpr ColorTable kFourBits = {{
    opaque(0xFF, 0xFF, 0xFF),  // white
    opaque(0xFC, 0xF3, 0x05),  // yellow
    opaque(0xFF, 0x64, 0x02),  // orange
    opaque(0xDD, 0x08, 0x06),  // red
    opaque(0xF2, 0x08, 0x84),  // magenta
    opaque(0x46, 0x00, 0xA5),  // purple
    opaque(0x00, 0x00, 0xD4),  // blue
    opaque(0x02, 0xAB, 0xEA),  // cyan
    opaque(0x1F, 0xB7, 0x14),  // green
    opaque(0x00, 0x64, 0x11),  // dark green
    opaque(0x56, 0x2C, 0x05),  // brown
    opaque(0x90, 0x71, 0x3A),  // tan
    opaque(0xC0, 0xC0, 0xC0),  // light gray
    opaque(0x80, 0x80, 0x80),  // medium gray
    opaque(0x40, 0x40, 0x40),  // dark gray
    opaque(0x00, 0x00, 0x00),  // black
}};

// A cube of six steps for each of red, green and blue, from white down; in the place of its black, which is
// the last color of all, begin ramps of red, green, blue and gray of the ten steps that the cube lacks.
struct EightBits : ColorTable {
    constexpr EightBits() : ColorTable() {
        constexpr unsigned kCubeStep = 0x33;
        constexpr unsigned kRampStep = 0x11;
        unsigned next = 0;
        for (unsigned i = 0; i < 6 * 6 * 6; ++i)
            colors[next++] =
                opaque(255 - i / 36 * kCubeStep, 255 - i / 6 % 6 * kCubeStep, 255 - i % 6 * kCubeStep);
        --next;
        constexpr Pixel kRamps[] = {opaque(1, 0, 0), opaque(0, 1, 0), opaque(0, 0, 1), opaque(1, 1, 1)};
        for (const Pixel& ramp : kRamps) {
            for (unsigned level = 255 - kRampStep; level != 0; level -= kRampStep) {
                if (level % kCubeStep == 0) continue;
                colors[next++] = opaque(ramp.red * level, ramp.green * level, ramp.blue * level);
            }
        }
        colors[next] = opaque(0, 0, 0);
    }
};

constexpr EightBits kEightBits;

// As they stand in a resource.
struct TableHeader {
    Be<uint32_t> seed;
    Be<uint16_t> flags;
    Be<uint16_t> lastBits;  // the count of entries minus 1, signed
};
static_assert(sizeof(TableHeader) == 8);

struct TableEntry {
    Be<uint16_t> value;
    Be<uint16_t> red, green, blue;
};
static_assert(sizeof(TableEntry) == 8);

// In a table for a device an entry's place is its value.
constexpr uint16_t kDeviceTable = 0x8000;

}  // namespace

const ColorTable& StandardColors(unsigned depth) {
    return depth == 1 ? kOneBit : depth == 4 ? kFourBits : kEightBits;
}

uint64_t ReadColorTable(const DataView& data, uint64_t offset, ColorTable& table) {
    const auto* const header = data.RecordAt<TableHeader>(offset);
    if (header == nullptr) return 0;
    const int count = static_cast<int16_t>(static_cast<uint16_t>(header->lastBits)) + 1;
    if (count < 0) return 0;
    const uint64_t size = sizeof *header + sizeof(TableEntry) * static_cast<uint64_t>(count);
    if (data.At(offset, size) == nullptr) return 0;
    const auto* const entries = reinterpret_cast<const TableEntry*>(header + 1);
    for (Pixel& color : table.colors)
        color = opaque(0, 0, 0);
    for (int i = 0; i < count; ++i) {
        const TableEntry& entry = entries[i];
        const int value = (header->flags & kDeviceTable) != 0 ? i : int{entry.value};
        if (value < 256) table.colors[value] = opaque(entry.red >> 8, entry.green >> 8, entry.blue >> 8);
    }
    return size;
}

}  // namespace tidewell
