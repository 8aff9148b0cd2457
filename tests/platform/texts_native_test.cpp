// Texts and titles, which Windows itself gives in Windows builds.
#include "res/resource.h"
#include "support/test_pc.h"

#include <commdlg.h>
#include <doctest/doctest.h>

TEST_CASE("LoadStringA gives the texts of the library, cut to the caller's buffer") {
    char text[] = "######";
    CHECK(LoadStringA(nullptr, IDS_MINUTES_REMAINING, text, 5) == 4);
    CHECK(std::string(text) == "%d M");
    CHECK(text[5] == '#');
    CHECK(LoadStringA(nullptr, 0xFFFF, text, sizeof text) == 0);
}

TEST_CASE("A file's title is its name") {
    TestPc pc;
    char title[20] = "unchanged";
    for (const char* path : {"", "C:\\", "C:", "a*b", "a\\b?"})
        CHECK(GetFileTitleA(path, title, sizeof title) < 0);
    CHECK(GetFileTitleA("C:name", title, 4) == 5);
    CHECK(std::string(title) == "unchanged");
    CHECK(GetFileTitleA("C:name", title, 5) == 0);
    CHECK(std::string(title) == "name");
    pc.setCodePage(932);  // the second byte of \x83\x5C is no backslash
    CHECK(GetFileTitleA("C:\\x\x83\x5Cy", title, sizeof title) == 0);
    CHECK(std::string(title) == "x\x83\x5Cy");
}
