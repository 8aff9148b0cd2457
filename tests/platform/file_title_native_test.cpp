#include "support/test_pc.h"

#include <commdlg.h>
#include <doctest/doctest.h>

TEST_CASE("A file's title is its name") {
    TestPc pc;
    char title[20] = "unchanged";
    CHECK(GetFileTitleA("Z:\\Folder\\Read Me.txt", title, sizeof title) == 0);
    CHECK(std::string(title) == "Read Me.txt");
    CHECK(GetFileTitleA("C:name", title, sizeof title) == 0);
    CHECK(std::string(title) == "name");
    for (const char* path : {"", "C:\\", "C:", "a*b", "a\\b?"})
        CHECK(GetFileTitleA(path, title, sizeof title) < 0);
    CHECK(GetFileTitleA("C:\\12345", title, 5) == 6);
    CHECK(std::string(title) == "name");
    pc.setCodePage(932);  // the second byte of \x83\x5C is no backslash
    CHECK(GetFileTitleA("C:\\x\x83\x5Cy", title, sizeof title) == 0);
    CHECK(std::string(title) == "x\x83\x5Cy");
}
