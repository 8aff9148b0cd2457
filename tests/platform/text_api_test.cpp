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
        unsigned last;  // unit
    } rows[] = {
        {pc::kCodePageUtf8, everyByte, 0xDCFF},  // a host's name may be any bytes
        {pc::kCodePageUtf8, "\xF0\x9F\x92\xBE", 0xDCBE},
        {932, "\x83\x5C\x93\xFA", 0x65E5},
        {1252, everyByte + '\x80', 0x20AC},
    };
    for (const auto& row : rows) {
        pc.setCodePage(row.codePage);
        WCHAR wide[300];
        char text[300];
        const int size = MultiByteToWideChar(CP_ACP, 0, row.text.c_str(), -1, wide, 300);
        CHECK(wide[size - 2] == row.last);
        REQUIRE(WideCharToMultiByte(CP_ACP, 0, wide, -1, text, 300, nullptr, nullptr) > 0);
        CHECK(text == row.text);
    }
    const WCHAR foreign[] = {'a', 0x65E5, 'b', 0};
    char text[4];
    CHECK(WideCharToMultiByte(CP_ACP, 0, foreign, -1, text, 4, nullptr, nullptr) == 4);
    CHECK(std::string(text) == "a?b");
}
