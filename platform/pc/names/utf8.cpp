#include "pc/names/utf8.h"

#include <cstdint>

namespace pc {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

// How many bytes a character takes that begins with `first`; 0 for a byte that begins none.
size_t lengthFrom(uint8_t first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

enum class Stray { replaced, kept };

constexpr char32_t kStrayByteBase = 0xDC00;

bool isStrayByte(char32_t unit) {
    return unit >= kStrayByteBase + 0x80 && unit <= kStrayByteBase + 0xFF;
}

std::u16string decode(std::string_view text, Stray stray) {
    std::u16string units;
    for (size_t position = 0; position < text.size();) {
        const uint8_t first = static_cast<uint8_t>(text[position]);
        char32_t character = nextCharacter(text, position);
        if (character == kNoCharacter)
            character = stray == Stray::kept ? kStrayByteBase + first : kReplacement;
        if (character >= 0x10000) {
            character -= 0x10000;
            units += static_cast<char16_t>(0xD800 + (character >> 10));
            character = 0xDC00 + (character & 0x3FF);
        }
        units += static_cast<char16_t>(character);
    }
    return units;
}

std::string encode(std::u16string_view text, Stray stray) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (stray == Stray::kept && isStrayByte(character)) {
            bytes += static_cast<char>(character - kStrayByteBase);
            continue;
        }
        if (isSurrogate(character)) {
            const char32_t low = i + 1 < text.size() ? char32_t{text[i + 1]} : 0;
            const bool paired = character < 0xDC00 && low >= 0xDC00 && low <= 0xDFFF;
            character = paired ? 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00) : kReplacement;
            if (paired) ++i;
        }
        appendCharacter(bytes, character);
    }
    return bytes;
}

}  // namespace

char32_t nextCharacter(std::string_view text, size_t& position) {
    static constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const uint8_t first = static_cast<uint8_t>(text[position]);
    const size_t length = lengthFrom(first);
    const size_t start = position++;
    if (length == 1) return first;
    if (length == 0 || text.size() - start < length) return kNoCharacter;
    char32_t character = first & (0xFFU >> (length + 1));
    for (size_t i = 1; i < length; ++i) {
        const uint8_t byte = static_cast<uint8_t>(text[start + i]);
        if ((byte & 0xC0) != 0x80) return kNoCharacter;
        character = character << 6 | (byte & 0x3FU);
    }
    if (character < kLeast[length] || character > 0x10FFFF || isSurrogate(character)) return kNoCharacter;
    position = start + length;
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::u16string utf16FromUtf8(std::string_view text) {
    return decode(text, Stray::replaced);
}

std::string utf8FromUtf16(std::u16string_view text) {
    return encode(text, Stray::replaced);
}

std::u16string utf16FromBytes(std::string_view text) {
    return decode(text, Stray::kept);
}

std::string bytesFromUtf16(std::u16string_view text) {
    return encode(text, Stray::kept);
}

}  // namespace pc
