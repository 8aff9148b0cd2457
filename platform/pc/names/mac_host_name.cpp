#include "pc/names/mac_host_name.h"

#include "pc/names/host_name.h"
#include "pc/names/letter_case.h"
#include "pc/names/mac_roman.h"
#include "pc/names/utf8.h"

#include <algorithm>
#include <cstddef>

namespace pc {

namespace {

constexpr size_t kLongestMacName = 31;

std::string slashesForColons(std::string_view hostName) {
    std::string name = hostNameOf(hostName);
    std::replace(name.begin(), name.end(), ':', '/');
    return name;
}

bool meansSomethingElse(std::string_view name) {
    return name == "." || name == ".." || belongsToDriver(name) ||
           equalIgnoringCase(name, kResourcePseudoFile) || equalIgnoringCase(name, kFinderPseudoFile);
}

std::string usableOnHost(std::string name) {
    std::replace(name.begin(), name.end(), '/', ':');
    std::replace(name.begin(), name.end(), '\0', '_');
    if (name.empty()) return "_";
    if (meansSomethingElse(name)) name[0] = '_';
    name = hostNameOf(windowsNameOf(name));
    if (meansSomethingElse(name)) name[0] = '_';
    return name;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::string macNameFromHost(std::string_view hostName) {
    return macRomanFromUtf8(slashesForColons(hostName)).substr(0, kLongestMacName);
}

std::string hostNameFromMac(std::string_view macRoman) {
    return usableOnHost(utf8FromMacRoman(macRoman));
}

std::string hostNameFor(const MacName& macName) {
    if (const auto* const roman = std::get_if<std::string>(&macName)) return hostNameFromMac(*roman);
    return usableOnHost(utf8FromUtf16(std::get<std::u16string>(macName)));
}

bool hasOneHostName(const MacName& macName) {
    const auto* const roman = std::get_if<std::string>(&macName);
    return roman != nullptr && isAscii(*roman) && roman->find('/') == std::string::npos &&
           windowsNameOf(*roman) == *roman && hostNameFromMac(*roman) == *roman;
}

bool standsFor(std::string_view hostName, const MacName& macName) {
    const std::string name = slashesForColons(hostName);
    const auto* const roman = std::get_if<std::string>(&macName);
    if (roman == nullptr) return utf16FromUtf8(name) == std::get<std::u16string>(macName);
    // A character that Mac Roman lacks is one more "_".
    return macRomanFromUtf8(name) == *roman &&
           std::count(roman->begin(), roman->end(), '_') == std::count(name.begin(), name.end(), '_');
}

}  // namespace pc
