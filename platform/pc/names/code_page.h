// Text between the PC's ANSI code page and Unicode.
#ifndef TIDEWELL_PLATFORM_PC_NAMES_CODE_PAGE_H
#define TIDEWELL_PLATFORM_PC_NAMES_CODE_PAGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pc {

constexpr unsigned kCodePageUtf8 = 65001;

// The code page of the current PC; UTF-8 when there is none.
unsigned ansiCodePage();

bool isLeadByte(unsigned codePage, uint8_t byte);

// Nothing when the bytes are no text of the code page. With UTF-8 every byte sequence passes unchanged,
// since host file names may be any bytes.
std::optional<std::string> utf8FromAnsi(unsigned codePage, std::string_view text);

// A character that the code page lacks becomes "?", or nothing is returned when `exact`.
std::optional<std::string> ansiFromUtf8(unsigned codePage, std::string_view text, bool exact);

// These two take any text, as Windows does: what is no character becomes "?". With UTF-8, bytes and units go
// back and forth as utf16FromBytes has them.
std::u16string utf16FromAnsi(unsigned codePage, std::string_view text);
std::string ansiFromUtf16(unsigned codePage, std::u16string_view text);

}  // namespace pc

#endif
