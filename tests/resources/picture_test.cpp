#include "resources/picture.h"

#include "support/archive_writer.h"
#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace tidewell;

namespace {

Picture decode(const std::string& type, const Bytes& data, const Bytes& mask = {}) {
    return DecodePicture(typeOf(type), data.data(), static_cast<uint32_t>(data.size()),
                         mask.empty() ? nullptr : mask.data(), static_cast<uint32_t>(mask.size()));
}

// Alpha, red, green and blue, from the highest byte down.
std::vector<uint32_t> colorsOf(const Picture& picture) {
    std::vector<uint32_t> colors(picture ? size_t{picture.width} * picture.height : 0);
    for (size_t i = 0; i < colors.size(); ++i) {
        const Pixel& pixel = picture.pixels()[i];
        for (const uint8_t byte : {pixel.alpha, pixel.red, pixel.green, pixel.blue})
            colors[i] = colors[i] << 8 | byte;
    }
    return colors;
}

// Rows between slashes: '.' for a pixel that is not there; white, black, red, green and blue are "o#rgb".
std::string drawing(const Picture& picture) {
    std::map<uint32_t, char> letters = {{0, '.'},          {0xFFFFFFFF, 'o'}, {0xFF000000, '#'},
                                        {0xFFFE0000, 'r'}, {0xFF00FE00, 'g'}, {0xFF0000FE, 'b'}};
    std::string text;
    for (const uint32_t color : colorsOf(picture)) {
        if (text.size() % (picture.width + 1) == picture.width) text += '/';
        text += letters[color];
    }
    return text;
}

Bytes operator+(Bytes bytes, const Bytes& more) {
    append(bytes, more);
    return bytes;
}

// Numbers of two bytes.
Bytes words(const std::vector<int>& values) {
    Bytes bytes(2 * values.size());
    for (size_t i = 0; i < values.size(); ++i)
        storeBig(bytes, 2 * i, 2, static_cast<uint32_t>(values[i]) & 0xFFFF);
    return bytes;
}

// Four pixels wide and two high, but where it is told.
struct ColorPicture {
    int depth = 4;
    Bytes rows = {0x01, 0x23, 0, 0, 0x32, 0x10, 0, 0};
    std::string unmasked = "rg#b/b#gr", shown = unmasked;
    int maskWidth = 0;
    Bytes mask = {};  // two bytes a row
    std::vector<std::pair<int, char>> colors = {{0, 'r'}, {1, 'g'}, {3, 'b'}};
    int tableFlags = 0;
    int width = 4, height = 2, rowBytes = 4;

    static Bytes bitMap(int flagsAndRowBytes, int width, int height) {
        return words({0, 0, flagsAndRowBytes, -3, 7, height - 3, width + 7});
    }
    Bytes pixelMap() const {
        return bitMap(0xC000 | rowBytes, width, height) +
               words({0, 0, 0, 0, 0, 72, 0, 72, 0, depth, 1, depth, 0, 0, 0, 78, 0, 0});
    }
    Bytes table() const {
        Bytes bytes = words({1, 2, tableFlags, static_cast<int>(colors.size()) - 1});
        for (const std::pair<int, char>& color : colors) {
            const auto part = [&](char wanted) { return color.second == wanted ? 0xFE80 : 0x0080; };
            bytes = bytes + words({color.first, part('r'), part('g'), part('b')});
        }
        return bytes;
    }
    Bytes cicn() const {
        const int maskRows = static_cast<int>(mask.size() / 2);
        return pixelMap() + bitMap(mask.empty() ? 0 : 2, maskWidth, maskRows) + bitMap(6, 4, 2) + Bytes(4) +
               mask + Bytes(12, 0x55) + table() + rows;
    }
    Bytes ppat(int type = 1) const {
        return words({type, 0, 28, 0, 78 + static_cast<int>(table().size()), 0, 0, 0, 0, 0}) +
               Bytes{0x80, 0x40, 0, 0, 0, 0, 0, 0xFF} + pixelMap() + table() + rows;
    }
};

}  // namespace

TEST_CASE("Pictures of black and white, with masks and without") {
    const TestPc pc;
    const struct {
        std::string type;
        size_t side;
        std::string shown;  // for white and black outside the mask, and in it
    } rows[] = {
        {"ICON", 32, "o#o#"}, {"ICN#", 32, "..o#"}, {"ics#", 16, "..o#"},
        {"CURS", 16, ".#o#"}, {"PAT ", 8, "o#o#"},
    };
    for (const auto& row : rows) {
        const Bytes data = patternOf(256);
        std::string shown;
        for (size_t i = 0; i < row.side * row.side; ++i) {
            const auto bit = [&](size_t at) { return size_t{data[at / 8]} >> (7 - at % 8) & 1; };
            if (i != 0 && i % row.side == 0) shown += '/';
            shown += row.shown[bit(i) + 2 * bit(row.side * row.side + i)];
        }
        CHECK_MESSAGE(drawing(decode(row.type, data, patternOf(256, 1))) == shown, row.type);
    }
}

TEST_CASE("The Mac's own colors") {
    const TestPc pc;
    Bytes values(256);
    for (size_t i = 0; i < 256; ++i)
        values[i] = static_cast<uint8_t>(i);
    const std::vector<uint32_t> eight = colorsOf(decode("ics8", values));
    CHECK(std::set<uint32_t>(eight.begin(), eight.end()).size() == 256);
    const std::pair<size_t, uint32_t> colors[] = {
        {0, 0xFFFFFF},   {1, 0xFFFFCC},   {5, 0xFFFF00},   {6, 0xFFCCFF},   {36, 0xCCFFFF},  {214, 0x000033},
        {215, 0xEE0000}, {216, 0xDD0000}, {217, 0xBB0000}, {218, 0xAA0000}, {219, 0x880000}, {220, 0x770000},
        {221, 0x550000}, {222, 0x440000}, {223, 0x220000}, {224, 0x110000}, {225, 0x00EE00}, {244, 0x000011},
        {245, 0xEEEEEE}, {254, 0x111111}, {255, 0x000000}};
    for (const std::pair<size_t, uint32_t>& color : colors)
        CHECK_MESSAGE(eight.at(color.first) == (0xFF000000 | color.second), color.first);

    std::vector<uint32_t> four =
        colorsOf(decode("icl4", Bytes{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF} + Bytes(504)));
    four.resize(16);
    CHECK(four == std::vector<uint32_t>{0xFFFFFFFF, 0xFFFCF305, 0xFFFF6402, 0xFFDD0806, 0xFFF20884,
                                        0xFF4600A5, 0xFF0000D4, 0xFF02ABEA, 0xFF1FB714, 0xFF006411,
                                        0xFF562C05, 0xFF90713A, 0xFFC0C0C0, 0xFF808080, 0xFF404040,
                                        0xFF000000});
}

TEST_CASE("Pictures with a color table of their own") {
    const TestPc pc;
    const ColorPicture rows[] = {
        {1, {0x60, 0, 0, 0, 0x90, 0, 0, 0}, "rggr/grrg", "rg.r/...g", 4, {0xD0, 0, 0x10, 0}},
        // A value that is not in the table is black. The mask may be larger than the picture, or smaller.
        {2, {0x1B, 0, 0, 0, 0xE4, 0, 0, 0}, "rg#b/b#gr", "r.#b/b#g.", 16, {0xBF, 0xFF, 0xEF, 0xFF, 0, 0}},
        {8, {0, 1, 2, 3, 3, 2, 1, 0}, "rg#b/b#gr", "rg#./....", 3, {0xFF, 0xFF}},
        // Places are values in the table of a device, whatever it says.
        {.unmasked = "rgb#/#bgr", .tableFlags = 0x8000},
        {.colors = {{0, 'r'}, {256, 'b'}, {1, 'g'}, {3, 'b'}, {255, 'r'}, {-1, 'g'}}},
        {.unmasked = "####/####", .colors = {}},
    };
    for (const ColorPicture& row : rows) {
        CAPTURE(row.unmasked);
        CHECK(drawing(decode("cicn", row.cicn())) == row.shown);
        CHECK(drawing(decode("ppat", row.ppat())) == row.unmasked);
        for (const int type : {0, 2})
            CHECK(drawing(decode("ppat", row.ppat(type))) ==
                  "#ooooooo/o#oooooo/oooooooo/oooooooo/oooooooo/oooooooo/oooooooo/########");
        CHECK(!decode("ppat", row.ppat(3)));
    }
}

TEST_CASE("Sizes and depths that no picture has") {
    const TestPc pc;
    const struct {
        int width, height, depth;
        bool good;
    } rows[] = {
        {1024, 1, 1, true}, {1025, 1, 1, false}, {1, 1024, 1, true}, {1, 1025, 1, false}, {0, 1, 1, false},
        {1, 0, 1, false},   {-1, 1, 1, false},   {1, -1, 1, false},  {130, 1, 8, true},   {131, 1, 8, false},
        {260, 1, 4, true},  {261, 1, 4, false},  {1, 1, 0, false},   {1, 1, 3, false},    {1, 1, 16, false},
    };
    for (const auto& row : rows) {
        CAPTURE(&row - rows);
        const ColorPicture picture = {.depth = row.depth,
                                      .rows = Bytes(150000),
                                      .width = row.width,
                                      .height = row.height,
                                      .rowBytes = 130};
        CHECK(bool(decode("cicn", picture.cicn())) == row.good);
        CHECK(bool(decode("ppat", picture.ppat())) == row.good);
    }
    CHECK(!decode("cicn", ColorPicture{.maskWidth = 17, .mask = {0, 0}}.cicn()));
}

TEST_CASE("A resource is no picture when it is cut anywhere, and without memory") {
    TestPc pc;
    const std::pair<std::string, size_t> sizes[] = {{"ICON", 128}, {"ICN#", 256},  {"icl4", 512},
                                                    {"ics#", 64},  {"icl8", 1024}, {"ics4", 128},
                                                    {"CURS", 64},  {"ics8", 256},  {"PAT ", 8}};
    std::map<std::string, Bytes> pictures = {{"cicn", ColorPicture{.mask = {1, 2}}.cicn()},
                                             {"ppat", ColorPicture{}.ppat()}};
    for (const auto& [type, size] : sizes)
        pictures[type] = patternOf(size);
    for (const auto& picture : pictures) {
        const std::string& type = picture.first;
        const Bytes& whole = picture.second;
        CAPTURE(type);
        CHECK(IsPictureType(typeOf(type)));
        for (size_t size = 0; size < whole.size(); ++size)
            CHECK_MESSAGE(!decode(type, Bytes(whole.begin(), whole.begin() + static_cast<int>(size))), size);
        CHECK(decode(type, whole));
        pc.faults().failMemory(1);
        CHECK(!decode(type, whole));
        pc.faults().clear();
    }
    CHECK(!IsPictureType(typeOf("PICT")));
    CHECK(!IsPictureType(ResourceType{}));
    CHECK(pc.nothingHeld());
}

TEST_CASE("A picture of a fork, with the mask of the icon of its number, when both can be read") {
    TestPc pc;
    const Bytes large =
        ColorPicture{.rows = Bytes(1 << 20, 1), .width = 1024, .height = 1024, .rowBytes = 1024}.cicn();
    writeFile("N:\\fork", resourceForkOf({{.type = "icl8", .id = -5, .data = patternOf(1024)},
                                          {.type = "icl8", .id = 6, .data = patternOf(1024)},
                                          {.type = "ics4", .id = -5, .data = patternOf(128)},
                                          {.type = "ICN#", .id = 1, .data = patternOf(256, 9)},
                                          {.type = "ICN#", .id = -5, .data = patternOf(256, 3)},
                                          {.type = "ics#", .id = -5, .data = patternOf(64, 5)},
                                          {.type = "ICON", .id = -5, .data = patternOf(5000)},
                                          {.type = "cicn", .id = -5, .data = large + Bytes(3 << 20)},
                                          {.type = "PICT", .data = patternOf(256)}}));
    ResourceForkReader reader;
    REQUIRE(reader.Open("N:\\fork"));
    uint64_t bytesRead = 0;
    const auto read = [&](uint16_t typeIndex, uint16_t index = 0, int failing = 0) {
        TypeEntry type;
        ReferenceEntry reference;
        REQUIRE(reader.ReadTypeEntry(typeIndex, type));
        REQUIRE(reader.ReadReferenceEntry(type, index, reference));
        pc.journal().clear();
        if (failing != 0) pc.faults().failCall(failing, ERROR_CRC);
        const std::vector<uint32_t> colors = colorsOf(ReadPicture(reader, type, reference));
        bytesRead = 0;
        for (const pc::JournalEntry& entry : pc.journal().entries())
            bytesRead += entry.call == "ReadFile" ? entry.amount : 0;
        return colors;
    };
    const std::vector<uint32_t> square = colorsOf(decode("icl8", patternOf(1024)));
    const std::vector<uint32_t> masked = colorsOf(decode("icl8", patternOf(1024), patternOf(256, 3)));
    CHECK(read(0) == masked);
    CHECK(masked != square);
    CHECK(read(0, 1) == square);
    CHECK(read(1) == colorsOf(decode("ics4", patternOf(128), patternOf(64, 5))));
    // No more is read than the picture takes.
    CHECK(read(4) == colorsOf(decode("ICON", patternOf(128))));
    CHECK(bytesRead == 4 + 128);
    CHECK(read(5) == colorsOf(decode("cicn", large)));
    CHECK(bytesRead == 4 + (2 << 20));
    CHECK(read(6).empty());
    CHECK(bytesRead == 0);

    constexpr uint64_t kUpToMask = 4 + 1024 + 3 * 8 + 2 * 12;  // bytes read when its entry is found
    for (int n = 1; n == 1 || pc.faults().hit(); ++n) {
        const std::vector<uint32_t> colors = read(0, 0, n);
        const bool withoutMask = colors == square && bytesRead <= kUpToMask;
        CHECK_MESSAGE((colors.empty() || withoutMask || !pc.faults().hit()), n);
    }
    reader.Close();
    CHECK(pc.nothingHeld());
}
