// Letter case of file names: ASCII, Latin, Greek and Cyrillic letters.
#ifndef TIDEWELL_PLATFORM_PC_NAMES_LETTER_CASE_H
#define TIDEWELL_PLATFORM_PC_NAMES_LETTER_CASE_H

#include <string>
#include <string_view>

namespace pc {

// UTF-8, no longer and no shorter; bytes that are no characters stay as they are.
std::string upperCase(std::string_view text);

inline bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && (a == b || upperCase(a) == upperCase(b));
}

}  // namespace pc

#endif
