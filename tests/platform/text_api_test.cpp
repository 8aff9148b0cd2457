// The conversions between the ANSI code page and UTF-16, with Windows' own results.
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <string>

namespace {

using Wide = std::basic_string<WCHAR>;

Wide wideOf(const std::string& text) {
    const int size = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
    REQUIRE(size > 0);
    Wide wide(static_cast<size_t>(size), WCHAR{0});
    REQUIRE(MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), size) == size);
    REQUIRE(wide.back() == 0);
    wide.pop_back();
    return wide;
}

std::string narrowOf(const Wide& wide) {
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, nullptr, 0, nullptr, nullptr);
    REQUIRE(size > 0);
    std::string text(static_cast<size_t>(size), '\0');
    REQUIRE(WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, text.data(), size, nullptr, nullptr) == size);
    REQUIRE(text.back() == '\0');
    text.pop_back();
    return text;
}

Wide units(std::initializer_list<unsigned> values) {
    Wide wide;
    for (const unsigned value : values)
        wide += static_cast<WCHAR>(value);
    return wide;
}

}  // namespace

TEST_CASE("Texts go through the PC's code page and back") {
    TestPc pc;
    std::string everyByte;
    for (int i = 1; i < 256; ++i)
        everyByte += static_cast<char>(i);
    CHECK(wideOf("a\x80\x81\xE9") == units({'a', 0x20AC, 0x81, 0xE9}));
    CHECK(narrowOf(wideOf(everyByte)) == everyByte);
    CHECK(narrowOf(units({'a', 0x65E5, 'b'})) == "a?b");

    pc.setCodePage(932);
    CHECK(wideOf("\x83\x5C\x93\xFA") == units({0x30BD, 0x65E5}));
    CHECK(narrowOf(units({0x30BD, 0x65E5, 'x'})) == "\x83\x5C\x93\xFAx");

    pc.setCodePage(pc::kCodePageUtf8);
    CHECK(wideOf("\xF0\x9F\x92\xBE") == units({0xD83D, 0xDCBE}));
    // A host's name may be any bytes.
    CHECK(narrowOf(wideOf(everyByte)) == everyByte);
}

TEST_CASE("A text that does not fit is told, and so is what nobody could convert") {
    const TestPc pc;
    WCHAR wide[4] = {};
    char text[4] = {};
    CHECK(MultiByteToWideChar(CP_ACP, 0, "abc", -1, wide, 4) == 4);
    CHECK(MultiByteToWideChar(CP_ACP, 0, "abcd", 4, wide, 4) == 4);  // without a NUL
    CHECK(wide[3] == 'd');
    SetLastError(0);
    CHECK(MultiByteToWideChar(CP_ACP, 0, "abcd", -1, wide, 4) == 0);
    CHECK(GetLastError() == ERROR_INSUFFICIENT_BUFFER);
    const Wide abcd = units({'a', 'b', 'c', 'd'});
    CHECK(WideCharToMultiByte(CP_ACP, 0, abcd.c_str(), 4, text, 4, nullptr, nullptr) == 4);
    SetLastError(0);
    CHECK(WideCharToMultiByte(CP_ACP, 0, abcd.c_str(), -1, text, 4, nullptr, nullptr) == 0);
    CHECK(GetLastError() == ERROR_INSUFFICIENT_BUFFER);
    for (const int length : {0, -1}) {
        SetLastError(0);
        CHECK(MultiByteToWideChar(CP_ACP, 0, length == 0 ? "a" : nullptr, length, wide, 4) == 0);
        CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
        SetLastError(0);
        const WCHAR* const source = length == 0 ? abcd.c_str() : nullptr;
        CHECK(WideCharToMultiByte(CP_ACP, 0, source, length, text, 4, nullptr, nullptr) == 0);
        CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    }
}
