#include "support/test_pc.h"

#include <doctest/doctest.h>

TEST_CASE("Texts go through the PC's code page and back") {
    TestPc pc;
    std::string everyByte;
    for (int i = 1; i < 256; ++i)
        everyByte += static_cast<char>(i);
    const struct {
        unsigned codePage;
        std::string text;
        unsigned second;  // the second unit
    } rows[] = {
        {1252, everyByte, 2},
        {1252, "a\x80", 0x20AC},
        {932, "\x83\x5C\x93\xFAx", 0x65E5},
        {pc::kCodePageUtf8, "\xF0\x9F\x92\xBE", 0xDCBE},
        {pc::kCodePageUtf8, everyByte, 2},  // a host's name may be any bytes
    };
    for (const auto& row : rows) {
        pc.setCodePage(row.codePage);
        WCHAR wide[256];
        char text[256];
        REQUIRE(MultiByteToWideChar(CP_ACP, 0, row.text.c_str(), -1, wide, 256) > 0);
        CHECK(wide[1] == row.second);
        REQUIRE(WideCharToMultiByte(CP_ACP, 0, wide, -1, text, 256, nullptr, nullptr) > 0);
        CHECK(text == row.text);
    }
    pc.setCodePage(1252);
    const WCHAR foreign[] = {'a', 0x65E5, 'b', 0};
    char text[4];
    CHECK(WideCharToMultiByte(CP_ACP, 0, foreign, -1, text, 4, nullptr, nullptr) == 4);
    CHECK(std::string(text) == "a?b");
}
