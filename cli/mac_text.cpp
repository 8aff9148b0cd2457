#include "mac_text.h"

#include "base/mac_roman.h"

#include <windows.h>

#include <algorithm>

namespace cli {

namespace {

bool isControl(char16_t unit) {
    return unit < ' ' || unit == 0x7F;
}

std::u16string unitsOfMac(const std::string& mac) {
    std::u16string units;
    for (const char c : mac)
        units += tidewell::UnitOfMacRoman(static_cast<uint8_t>(c));
    return units;
}

std::u16string unitsOfText(const std::string& text) {
    // No code page has characters of more units than bytes.
    std::basic_string<WCHAR> wide(text.size(), 0);
    const int count = text.empty()
                          ? 0
                          : MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                                wide.data(), static_cast<int>(wide.size()));
    return {wide.begin(), wide.begin() + count};
}

std::string textOf(const std::u16string& units) {
    constexpr size_t kMostBytes = 4;  // that a unit becomes
    const std::basic_string<WCHAR> wide(units.begin(), units.end());
    std::string text(kMostBytes * wide.size(), '\0');
    const int count = wide.empty()
                          ? 0
                          : WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()),
                                                text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<size_t>(count));
    return text;
}

std::string jsonOf(const std::u16string& units) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string json = "\"";
    for (const char16_t unit : units) {
        if (isControl(unit) || unit > 0x7F) {
            json += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4)
                json += kDigits[unit >> shift & 15];
        } else {
            if (unit == '"' || unit == '\\') json += '\\';
            json += static_cast<char>(unit);
        }
    }
    return json + '"';
}

}  // namespace

std::string textOfMac(const std::string& mac) {
    std::u16string units = unitsOfMac(mac);
    std::replace_if(units.begin(), units.end(), isControl, u'?');
    return textOf(units);
}

std::optional<std::string> macOfTyped(const std::string& typed) {
    std::string mac;
    for (const char16_t unit : unitsOfText(typed)) {
        uint8_t byte = 0;
        if (!tidewell::MacRomanOfUnit(unit, byte)) return std::nullopt;
        mac += static_cast<char>(byte);
    }
    return mac;
}

std::string jsonOfMac(const std::string& mac) {
    return jsonOf(unitsOfMac(mac));
}

std::string jsonOfText(const std::string& text) {
    return jsonOf(unitsOfText(text));
}

}  // namespace cli
