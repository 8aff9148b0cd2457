#include "macfile/path.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace tidewell;

TEST_CASE("JoinPath separates only where a separator is missing") {
    struct Row {
        const char* dir;
        const char* name;
        const char* joined;
    };
    const Row rows[] = {
        {"C:\\Work", "a.txt", "C:\\Work\\a.txt"},
        {"C:\\", "a.txt", "C:\\a.txt"},
        {"C:\\a.txt", ":AFP_Resource", "C:\\a.txt:AFP_Resource"},
        {"C:\\Work", "", "C:\\Work\\"},
    };
    for (const Row& row : rows) {
        char out[kPathCapacity];
        const DWORD size = JoinPath(out, sizeof out, row.dir, row.name);
        CHECK(std::string(out) == row.joined);
        CHECK(size == std::strlen(row.joined) + 1);

        char same[kPathCapacity];
        std::strcpy(same, row.dir);
        CHECK(JoinPath(same, sizeof same, same, row.name) == size);
        CHECK(std::string(same) == row.joined);

        std::memset(out, '#', sizeof out);
        CHECK(JoinPath(out, size - 1, row.dir, row.name) == size);
        CHECK(out[0] == '#');
        CHECK(JoinPath(out, size, row.dir, row.name) == size);
        CHECK(out[size] == '#');
    }
}

TEST_CASE("The name and the extension of a path") {
    struct Row {
        const char* path;
        const char* name;
        const char* extension;
    };
    const Row rows[] = {
        {"C:\\Work\\Read.Me", "Read.Me", ".Me"},
        {"name", "name", ""},
        {"a.b.c", "a.b.c", ".c"},
        {"dir.x\\name", "name", ""},
        {"C:name.txt", "name.txt", ".txt"},
        {"C:\\a.txt:AFP_Resource", "a.txt:AFP_Resource", ".txt:AFP_Resource"},
        {"C:\\Work\\", "", ""},
        {".profile", ".profile", ".profile"},
        {"", "", ""},
    };
    for (const Row& row : rows) {
        CHECK(std::string(FileNamePart(row.path)) == row.name);
        CHECK(std::string(FileExtension(row.path)) == row.extension);
    }
}

TEST_CASE("The second byte of a double-byte character is no backslash") {
    TestPc pc;
    pc.setCodePage(932);
    // 0x95 0x5C is one character.
    CHECK(std::string(FileNamePart("C:\\\x95\x5C.txt")) == "\x95\x5C.txt");
    CHECK(std::string(FileNamePart("C:\\Dir\\a\x95\x5C"
                                   "b")) ==
          "a\x95\x5C"
          "b");
    char out[kPathCapacity];
    JoinPath(out, sizeof out, "C:\\\x95\x5C", "a");
    CHECK(std::string(out) == "C:\\\x95\x5C\\a");
    // A lead byte with nothing behind it ends the text and no more.
    CHECK(std::string(FileNamePart("C:\\a\x95")) == "a\x95");

    pc.setCodePage(1252);
    CHECK(std::string(FileNamePart("C:\\\x95\x5C.txt")) == ".txt");
}

TEST_CASE("A file is measured by its path") {
    TestPc pc;
    writeFile("F:\\file", patternOf(1000));
    writeFile("F:\\empty", {});
    CHECK(GetFileSizeByPath("F:\\file") == 1000);
    CHECK(GetFileSizeByPath("F:\\empty") == 0);
    CHECK(GetFileSizeByPath("F:\\missing") == 0);
    CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    // A failed query is no size.
    pc.faults().failCall(2, ERROR_CRC);
    CHECK(GetFileSizeByPath("F:\\file") == 0);
    CHECK(pc.faults().hitCall() == "GetFileSize");
    CHECK(pc.nothingHeld());
}

TEST_CASE("Short paths") {
    TestPc pc;
    writeFile("N:\\Long name.txt", {});
    char out[kPathCapacity];
    CHECK(GetShortPath("N:\\Long name.txt", out, sizeof out) == 15);
    CHECK(std::string(out) == "N:\\LONGNA~1.TXT");
    CHECK(GetShortPath("N:\\Long name.txt", out, 15) == 16);
    CHECK(GetShortPath("N:\\missing", out, sizeof out) == 0);
    char same[] = "N:\\not there.txt";
    CHECK(GetShortPath(same, same, sizeof same) == 16);
}
