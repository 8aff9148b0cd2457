// The Mac Roman character set, with the euro sign of Mac OS 8.5.
#ifndef TIDEWELL_PLATFORM_PC_NAMES_MAC_ROMAN_H
#define TIDEWELL_PLATFORM_PC_NAMES_MAC_ROMAN_H

#include <string>
#include <string_view>

namespace pc {

// Letters followed by a combining accent, as macOS writes file names, are composed first. What Mac Roman
// lacks becomes "_".
std::string macRomanFromUtf8(std::string_view text);

// Every byte has its character; the Apple logo is U+F8FF.
std::string utf8FromMacRoman(std::string_view text);

}  // namespace pc

#endif
