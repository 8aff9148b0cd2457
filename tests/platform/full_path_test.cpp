// Paths as Windows reads them, and where they lead on the PC.
#include "support/test_pc.h"

#include <doctest/doctest.h>

namespace {

std::string fullPath(const std::string& path) {
    char text[600] = "";
    LPSTR part = nullptr;
    const DWORD length = GetFullPathNameA(path.c_str(), sizeof text, text, &part);
    if (length == 0) return "error " + std::to_string(GetLastError());
    CHECK(length == std::string(text).size());
    CHECK((part == nullptr) == std::string(text).ends_with('\\'));
    return text;
}

DWORD attributesError(const std::string& path) {
    return exists(path) ? 0 : GetLastError();
}

}  // namespace

TEST_CASE("A full path is Windows' reading of what was typed") {
    TestPc pc;
#ifndef _WIN32
    // Without a current folder, Windows answers where there is one.
    CHECK(fullPath("x") == "error 3");
#endif
    pc.setCurrentFolder("M:\\Work");
    pc.setCurrentFolder("N:\\Sub\\Deep\\");
    const std::pair<const char*, const char*> rows[] = {
        {"x", "N:\\Sub\\Deep\\x"},
        {"..\\x/", "N:\\Sub\\x\\"},
        {"..\\..\\..\\..\\x", "N:\\x"},
        {".", "N:\\Sub\\Deep"},
        {"n:", "n:\\Sub\\Deep"},
        {"M:x", "M:\\Work\\x"},
        {"F:\\a//b\\.\\c\\..\\\\d", "F:\\a\\b\\d"},
        {"F:\\a.\\b. \\c. .", "F:\\a\\b. \\c"},
        {"F:\\a\\...", "F:\\a\\"},
        {"F:\\aux\\x", "F:\\aux\\x"},
        {"F:\\x\\nul .txt", "\\\\.\\nul"},
        {"F:com1", "\\\\.\\com1"},
        {"LPT9:", "\\\\.\\LPT9"},
        {"COM0", "N:\\Sub\\Deep\\COM0"},
        {"\\\\?\\F:\\a\\..\\NUL", "\\\\?\\F:\\a\\..\\NUL"},
        {"//./F:", "//./F:"},
        {"//server/share/a", "\\\\server\\share\\a"},
        {"", "error 123"},
    };
    for (const auto& row : rows)
        CHECK_MESSAGE(fullPath(row.first) == row.second, row.first);
    char text[5] = "kept";
    CHECK(GetFullPathNameA("F:\\a", 4, text, nullptr) == 5);
    CHECK(std::string(text) == "kept");
    pc.setCodePage(932);  // the second byte of \x83\x5C is no separator
    CHECK(fullPath("F:\\\x83\x5C\\..\\x\x83\x5Cy") == "F:\\x\x83\x5Cy");
}

TEST_CASE("Files are reached by relative, literal and wide paths") {
    TestPc pc;
    pc.folder().makeFolder("N/Sub");
    pc.setCurrentFolder("N:\\Sub");
    writeFile("x", bytesOf("1"));
    for (const char* path : {"N:\\Sub\\x", "N:x", "\\Sub\\x", "..\\sub\\x. ", "\\\\?\\N:\\Sub\\x"})
        CHECK_MESSAGE(exists(path), path);
    CHECK(attributesError("nul.txt") == ERROR_FILE_NOT_FOUND);
    CHECK(attributesError("\\\\?\\N:") == ERROR_FILE_NOT_FOUND);
    CHECK(attributesError("\\\\?\\Q:\\x") == ERROR_PATH_NOT_FOUND);
    const WCHAR wide[] = {'x', 0};
    CHECK(DeleteFileW(wide));
    CHECK(attributesError("N:\\Sub\\x") == ERROR_FILE_NOT_FOUND);
    const WCHAR device[] = {'\\', '\\', '.', '\\', 'T', 'I', 'D', 'E', 'W', 'E', 'L', 'L', 0};
    CHECK_FALSE(DeleteFileW(device));
}

TEST_CASE("A path is as long as its system counts it") {
    std::string name;  // 256 characters of two bytes, but for every 64th
    for (int i = 1; i <= 256; ++i)
        name += i % 64 == 0 ? "\\" : "\x93\xFA";
    const size_t half = 128 * 2 - 2;
    for (const pc::Platform platform : {pc::Platform::nt, pc::Platform::windows98}) {
        const bool nt = platform == pc::Platform::nt;
        TestPc pc(platform);
        pc.setCodePage(932);
        const DWORD longer = nt ? ERROR_PATH_NOT_FOUND : ERROR_FILENAME_EXCED_RANGE;
        CHECK(attributesError("F:\\" + name) == longer);
        CHECK(attributesError("F:\\" + name + "x") == ERROR_FILENAME_EXCED_RANGE);
        CHECK(attributesError("F:\\" + name.substr(0, half) + "\\x") == ERROR_PATH_NOT_FOUND);
        CHECK(attributesError("F:\\" + name.substr(0, half) + "\\xy") == longer);
        CHECK(attributesError("\\\\?\\F:\\" + name + "x") ==
              (nt ? ERROR_PATH_NOT_FOUND : ERROR_INVALID_NAME));
        pc.setPathLimit(MAX_PATH);  // which is in bytes
        CHECK(attributesError("F:\\" + name) == ERROR_FILENAME_EXCED_RANGE);
        const WCHAR none[] = {'F', ':', 'x', 0};
        CHECK_FALSE(DeleteFileW(none));
        CHECK(GetLastError() == (nt ? ERROR_FILE_NOT_FOUND : ERROR_CALL_NOT_IMPLEMENTED));
    }
}
