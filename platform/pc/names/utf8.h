// Characters of UTF-8 texts, whose bytes may be anything.
#ifndef TIDEWELL_PLATFORM_PC_NAMES_UTF8_H
#define TIDEWELL_PLATFORM_PC_NAMES_UTF8_H

#include <cstddef>
#include <string>
#include <string_view>

namespace pc {

// What a byte that belongs to no character counts as.
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// The character at `position`, which moves behind it; by one byte for kNoCharacter.
char32_t nextCharacter(std::string_view text, size_t& position);

void appendCharacter(std::string& text, char32_t character);

// What is no character becomes U+FFFD.
std::u16string utf16FromUtf8(std::string_view text);
std::string utf8FromUtf16(std::u16string_view text);

// As these two, but every byte survives: one that belongs to no character is the low surrogate 0xDC00 plus
// the byte, which no text holds without its high surrogate.
std::u16string utf16FromBytes(std::string_view text);
std::string bytesFromUtf16(std::u16string_view text);

}  // namespace pc

#endif
