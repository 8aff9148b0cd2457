#include "base/file.h"
#include "base/full_path.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <set>
#include <utility>
#include <vector>

using namespace tidewell;

TEST_CASE("JoinPath separates only where a separator is missing") {
    const char* const rows[][3] = {
        {"C:\\Work", "a.txt", "C:\\Work\\a.txt"},
        {"C:\\", "a.txt", "C:\\a.txt"},
        {"C:\\a.txt", ":AFP_Resource", "C:\\a.txt:AFP_Resource"},
        {"C:\\Work", "", "C:\\Work\\"},
    };
    for (const auto& [dir, name, joined] : rows) {
        const DWORD size = static_cast<DWORD>(std::strlen(joined) + 1);
        char same[kPathCapacity];
        std::strcpy(same, dir);
        CHECK(JoinPath(same, sizeof same, same, name) == size);
        CHECK(std::string(same) == joined);

        char out[kPathCapacity];
        std::memset(out, '#', sizeof out);
        CHECK(JoinPath(out, size - 1, dir, name) == size);
        CHECK(out[0] == '#');
        CHECK(JoinPath(out, size, dir, name) == size);
        CHECK(std::string(out) == joined);
        CHECK(out[size] == '#');
    }
}

TEST_CASE("The name and the extension of a path") {
    TestPc pc;
    const struct {
        unsigned codePage;
        const char* path;
        const char* name;
        const char* extension;
    } rows[] = {
        {1252, "C:\\Work\\Read.Me", "Read.Me", ".Me"},
        {1252, "name", "name", ""},
        {1252, "dir.x\\name", "name", ""},
        {1252, "C:name.txt", "name.txt", ".txt"},
        {1252, "C:\\a.txt:AFP_Resource", "a.txt:AFP_Resource", ".txt:AFP_Resource"},
        {1252, "C:\\\x95\x5C.txt", ".txt", ".txt"},
        // One character, whose second byte is no backslash.
        {932, "C:\\\x95\x5C.txt", "\x95\x5C.txt", ".txt"},
        // A lead byte with nothing behind it ends the text and no more.
        {932, "C:\\a\x95", "a\x95", ""},
    };
    for (const auto& row : rows) {
        pc.setCodePage(row.codePage);
        CHECK(std::string(FileNamePart(row.path)) == row.name);
        CHECK(std::string(FileExtension(row.path)) == row.extension);
    }
    char out[kPathCapacity];
    JoinPath(out, sizeof out, "C:\\\x95\x5C", "a");
    CHECK(std::string(out) == "C:\\\x95\x5C\\a");
}

TEST_CASE("Sizes and short forms of paths") {
    TestPc pc;
    writeFile("N:\\Long name.txt", patternOf(1000));
    CHECK(GetFileSizeByPath("N:\\Long name.txt") == 1000);
    CHECK(GetFileSizeByPath("N:\\missing") == 0);
    CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    char out[kPathCapacity];
    CHECK(GetShortPath("N:\\Long name.txt", out, 15) == 16);
    CHECK(GetShortPath("N:\\missing", out, sizeof out) == 0);
    OwnedFile file;
    REQUIRE(OpenForReading("N:\\Long name.txt", file) == 0);
    CHECK(SeekTo(file.get(), 0x1FFFFFFFF) == 0);
    CHECK(SeekTo(file.get(), 999) == 0);
    char last = 0;
    CHECK(ReadWhole(file.get(), &last, 1) == 0);
    CHECK(static_cast<uint8_t>(last) == patternOf(1000)[999]);
    // A failed query is no size.
    pc.faults().failCall(2, ERROR_CRC);
    CHECK(GetFileSizeByPath("N:\\Long name.txt") == 0);
    CHECK(pc.faults().hitCall() == "GetFileSize");
    file = {};
    CHECK(pc.nothingHeld());
}

TEST_CASE("A path is made full, and loses no meaning with its prefix") {
    TestPc pc;
    pc.setCurrentFolder("N:\\t");
    // The path that it becomes, or none.
    const std::pair<const char*, std::string> rows[] = {
        {"a", "N:\\t\\a"},
        {"F:/a/../b", "F:\\b"},
        {"\\\\server\\share\\a", "\\\\server\\share\\a"},
        {"\\\\?\\UNC\\server\\share\\a", "\\\\server\\share\\a"},
        {"\\\\?\\F:\\a b\\c", "F:\\a b\\c"},
        {"\\\\?\\UNC\\server\\share\\a/b", ""},
        {"\\\\?\\F:", ""},
        {"\\\\?\\", ""},
        {"\\\\?\\F", ""},
        {"//?/F:\\a", "F:\\a"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.first);
        char full[kPathCapacity] = "";
        CHECK(GetFullPath(row.first, full) == (row.second.empty() ? ERROR_INVALID_NAME : 0));
        if (!row.second.empty()) CHECK(full == row.second);
    }
}

TEST_CASE("A path that does not fit is told") {
    TestPc pc;
    std::vector<std::string> starts = {"F:\\", "\\\\?\\F:\\"};
#ifndef _WIN32
    // Windows itself looks at those of servers, and need not take long ones.
    starts.push_back("\\\\?\\UNC\\s\\");
#endif
    for (const std::string& start : starts) {
        for (const size_t beyond : {0u, 1u}) {
            const size_t taken = start.ends_with("s\\") ? sizeof "\\\\s\\" : sizeof "F:\\";
            const std::string path = start + std::string(kPathCapacity - taken + beyond, 'a');
            char full[kPathCapacity + 1];
            std::memset(full, '#', sizeof full);
            CHECK(GetFullPath(path.c_str(), full) == (beyond == 0 ? 0 : ERROR_FILENAME_EXCED_RANGE));
            CHECK(full[kPathCapacity] == '#');
        }
    }
}

TEST_CASE("What cannot be looked at may be there, unless the error says that nothing can be") {
    TestPc pc;
    writeFile("F:\\file", {});
    CHECK(MayExist("F:\\file"));
    CHECK(!MayExist("F:\\none"));
    const std::set<ErrorCode> nothingThere = {2, 3, 15, 21, 53, 55, 64, 67, 123, 161, 206, 1005, 1222};
    for (ErrorCode error = 1; error < 1400; ++error) {
        pc.faults().failAlways("GetFileAttributesA", "F:\\file", error);
        CHECK_MESSAGE(MayExist("F:\\file") != nothingThere.contains(error), error);
    }
}
