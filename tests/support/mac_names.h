// Mac names by the library, in the form that tests compare.
#ifndef TIDEWELL_TESTS_SUPPORT_MAC_NAMES_H
#define TIDEWELL_TESTS_SUPPORT_MAC_NAMES_H

#include "macfile/mac_name.h"

#include <string>
#include <string_view>

struct Answer {
    tidewell::ErrorCode error;
    std::string path;  // empty after an error
    bool operator==(const Answer&) const = default;
};

// LookUpMacName or CreateMacNamedFile.
using MacNameOperation = decltype(tidewell::LookUpMacName);
Answer ask(MacNameOperation* operation, const std::string& folder, const std::string& macName,
           size_t capacity = 520);
Answer askUnicode(const std::string& folder, std::u16string_view name);

#endif
