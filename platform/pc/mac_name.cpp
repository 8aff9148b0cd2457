#include "mac_name.h"

#include "mac_roman.h"
#include "reserved_characters.h"
#include "utf8.h"

#include <algorithm>
#include <cstddef>

namespace pc {

namespace {

constexpr size_t kLongestMacName = 31;
constexpr size_t kLongestUnicodeName = 255;

std::string slashesForColons(std::string_view hostName) {
    std::string name = restoreReserved(hostName);
    std::replace(name.begin(), name.end(), ':', '/');
    return name;
}

std::string usableOnHost(std::string name) {
    std::replace(name.begin(), name.end(), '/', ':');
    std::replace(name.begin(), name.end(), '\0', '_');
    if (name.empty()) return "_";
    if (name == "." || name == ".." || belongsToDriver(name)) name[0] = '_';
    return name;
}

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

std::string macNameFromHost(std::string_view hostName) {
    return macRomanFromUtf8(slashesForColons(hostName)).substr(0, kLongestMacName);
}

std::u16string unicodeMacNameFromHost(std::string_view hostName) {
    std::u16string name = utf16FromUtf8(slashesForColons(hostName));
    if (name.size() <= kLongestUnicodeName) return name;
    name.resize(isLowSurrogate(name[kLongestUnicodeName]) ? kLongestUnicodeName - 1 : kLongestUnicodeName);
    return name;
}

std::string hostNameFromMac(std::string_view macRoman) {
    return usableOnHost(utf8FromMacRoman(macRoman));
}

std::string hostNameFromUnicodeMac(std::u16string_view macName) {
    return usableOnHost(utf8FromUtf16(macName));
}

}  // namespace pc
