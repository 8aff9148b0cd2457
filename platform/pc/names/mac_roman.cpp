#include "pc/names/mac_roman.h"

#include "base/mac_roman.h"
#include "pc/names/utf8.h"

#include <cstdint>

namespace pc {

namespace {

// A letter, the combining accent after it, and the one byte for both.
struct Composition {
    char16_t letter;
    char16_t accent;
    uint8_t byte;
};

constexpr Composition kCompositions[] = {
    {'A', 0x0308, 0x80}, {'A', 0x030A, 0x81}, {'C', 0x0327, 0x82}, {'E', 0x0301, 0x83}, {'N', 0x0303, 0x84},
    {'O', 0x0308, 0x85}, {'U', 0x0308, 0x86}, {'a', 0x0301, 0x87}, {'a', 0x0300, 0x88}, {'a', 0x0302, 0x89},
    {'a', 0x0308, 0x8A}, {'a', 0x0303, 0x8B}, {'a', 0x030A, 0x8C}, {'c', 0x0327, 0x8D}, {'e', 0x0301, 0x8E},
    {'e', 0x0300, 0x8F}, {'e', 0x0302, 0x90}, {'e', 0x0308, 0x91}, {'i', 0x0301, 0x92}, {'i', 0x0300, 0x93},
    {'i', 0x0302, 0x94}, {'i', 0x0308, 0x95}, {'n', 0x0303, 0x96}, {'o', 0x0301, 0x97}, {'o', 0x0300, 0x98},
    {'o', 0x0302, 0x99}, {'o', 0x0308, 0x9A}, {'o', 0x0303, 0x9B}, {'u', 0x0301, 0x9C}, {'u', 0x0300, 0x9D},
    {'u', 0x0302, 0x9E}, {'u', 0x0308, 0x9F}, {'=', 0x0338, 0xAD}, {'A', 0x0300, 0xCB}, {'A', 0x0303, 0xCC},
    {'O', 0x0303, 0xCD}, {'y', 0x0308, 0xD8}, {'Y', 0x0308, 0xD9}, {'A', 0x0302, 0xE5}, {'E', 0x0302, 0xE6},
    {'A', 0x0301, 0xE7}, {'E', 0x0308, 0xE8}, {'E', 0x0300, 0xE9}, {'I', 0x0301, 0xEA}, {'I', 0x0302, 0xEB},
    {'I', 0x0308, 0xEC}, {'I', 0x0300, 0xED}, {'O', 0x0301, 0xEE}, {'O', 0x0302, 0xEF}, {'O', 0x0300, 0xF1},
    {'U', 0x0301, 0xF2}, {'U', 0x0302, 0xF3}, {'U', 0x0300, 0xF4},
};

constexpr char32_t kLetterOmega = 0x3A9;
constexpr char32_t kOhmSign = 0x2126;
constexpr char32_t kLetterARing = 0xC5;
constexpr char32_t kAngstromSign = 0x212B;

// 0 when there is none.
char byteOf(char32_t character) {
    if (character == kOhmSign) character = kLetterOmega;
    if (character == kAngstromSign) character = kLetterARing;
    uint8_t byte = 0;
    const bool found =
        character <= 0xFFFF && tidewell::MacRomanOfUnit(static_cast<char16_t>(character), byte);
    return found ? static_cast<char>(byte) : '\0';
}

char composedByteOf(char32_t letter, char32_t accent) {
    for (const Composition& composition : kCompositions) {
        if (composition.letter == letter && composition.accent == accent) {
            return static_cast<char>(composition.byte);
        }
    }
    return 0;
}

}  // namespace

std::string macRomanFromUtf8(std::string_view text) {
    std::string mac;
    for (size_t position = 0; position < text.size();) {
        const char32_t character = nextCharacter(text, position);
        size_t behindAccent = position;
        char byte = 0;
        if (position < text.size()) byte = composedByteOf(character, nextCharacter(text, behindAccent));
        if (byte != 0) {
            position = behindAccent;
        } else if (character != 0) {
            byte = byteOf(character);
            if (byte == 0) byte = '_';
        }
        mac += byte;
    }
    return mac;
}

std::string utf8FromMacRoman(std::string_view text) {
    std::string utf8;
    for (const char c : text)
        appendCharacter(utf8, tidewell::UnitOfMacRoman(static_cast<uint8_t>(c)));
    return utf8;
}

}  // namespace pc
