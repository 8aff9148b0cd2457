#include "pc/names/letter_case.h"

#include "pc/names/utf8.h"

#include <cstddef>

namespace pc {

namespace {

// Small letters whose capitals lie `distance` before them; with a step of 2, every other character.
struct LetterRange {
    char32_t first, last;
    char32_t step;
    char32_t distance;
};

constexpr LetterRange kLetterRanges[] = {
    {0xE0, 0xF6, 1, 0x20},   {0xF8, 0xFE, 1, 0x20},   {0x101, 0x12F, 2, 1},    {0x133, 0x137, 2, 1},
    {0x13A, 0x148, 2, 1},    {0x14B, 0x177, 2, 1},    {0x17A, 0x17E, 2, 1},    {0x3AC, 0x3AC, 1, 0x26},
    {0x3AD, 0x3AF, 1, 0x25}, {0x3B1, 0x3C1, 1, 0x20}, {0x3C2, 0x3C2, 1, 0x1F}, {0x3C3, 0x3CB, 1, 0x20},
    {0x3CC, 0x3CC, 1, 0x40}, {0x3CD, 0x3CE, 1, 0x3F}, {0x430, 0x44F, 1, 0x20}, {0x450, 0x45F, 1, 0x50},
};

char32_t upperOf(char32_t character) {
    if (character < 0x80) return character >= 'a' && character <= 'z' ? character - 0x20 : character;
    if (character == 0xFF) return 0x178;
    for (const LetterRange& range : kLetterRanges) {
        if (character < range.first || character > range.last) continue;
        return (character - range.first) % range.step == 0 ? character - range.distance : character;
    }
    return character;
}

}  // namespace

std::string upperCase(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (size_t position = 0; position < text.size();) {
        const size_t start = position;
        const char32_t character = nextCharacter(text, position);
        if (character == kNoCharacter) {
            upper += text[start];
        } else {
            appendCharacter(upper, upperOf(character));
        }
    }
    return upper;
}

}  // namespace pc
