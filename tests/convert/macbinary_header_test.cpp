#include "convert/macbinary_header.h"

#include "convert/macbinary_crc.h"
#include "convert/swap_fields.h"
#include "macfile/fork_paths.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace tidewell;

namespace {

HANDLE openForReading(const std::string& path) {
    return CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
}

// Packs only the header of the Mac file at `path`, as it stands in a file.
Bytes headerOf(const std::string& path) {
    ForkPathBuffers paths;
    GetForkPaths(path.c_str(), paths);
    const HANDLE data = openForReading(paths.dataPath);
    const HANDLE resource = openForReading(paths.resourcePath);
    MacBinaryHeader header;
    const BOOL built = BuildMacBinaryHeader(paths.dataPath, paths.finderInfoPath, data, resource, &header);
    CloseHandle(data);
    if (resource != INVALID_HANDLE_VALUE) CloseHandle(resource);
    REQUIRE(built);
    const std::string out = path.substr(0, 3) + "header";
    const HANDLE file = CreateFileA(out.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const MacBinaryHeader before = header;
    CHECK(WriteMacBinaryHeader(file, &header));
    CloseHandle(file);
    // In host order again, but for the CRC.
    CHECK(std::memcmp(&before, &header, offsetof(MacBinaryHeader, crc)) == 0);
    return readFile(out);
}

}  // namespace

TEST_CASE("SwapFields turns over numbers and copies the rest") {
    const uint8_t widths[] = {1, 2, 3, 4, 8, 0};
    uint8_t record[18];
    uint8_t swapped[20];
    for (uint8_t i = 0; i < 18; ++i)
        record[i] = i;
    std::memset(swapped, 0xEE, sizeof swapped);
    SwapFields(record, swapped, widths);
    const uint8_t expected[] = {0, 2, 1, 3, 4, 5, 9, 8, 7, 6, 10, 11, 12, 13, 14, 15, 16, 17, 0xEE, 0xEE};
    CHECK(std::memcmp(swapped, expected, sizeof expected) == 0);
    SwapFields(swapped, swapped, widths);
    CHECK(std::memcmp(swapped, record, sizeof record) == 0);
}

TEST_CASE("The header of a file on a Mac volume") {
    TestPc pc;
    writeMacFile("M:\\A name of its own", {.data = patternOf(0x12345), .resource = patternOf(0x123)});
    const Bytes header = headerOf("M:\\A name of its own");
    REQUIRE(header.size() == 126);
    Bytes expected(126);
    expected[1] = 17;
    std::memcpy(&expected[2], "A name of its own", 17);
    std::memcpy(&expected[65], "TEXTttxt", 8);
    expected[73] = 0x21;
    const uint8_t positions[] = {1, 2, 3, 4, 5, 6, 1};
    std::memcpy(&expected[75], positions, sizeof positions);
    expected[84] = 0x01;
    expected[85] = 0x23;
    expected[86] = 0x45;
    expected[89] = 0x01;
    expected[90] = 0x23;
    const uint16_t crc = MacBinaryCrc(expected.data(), 124);
    expected[124] = static_cast<uint8_t>(crc >> 8);
    expected[125] = static_cast<uint8_t>(crc);
    CHECK(header == expected);
}

TEST_CASE("On NTFS the short name is the Mac name, and nothing protects the file") {
    TestPc pc;
    writeMacFile("N:\\Long name.txt", {.hasResource = false, .flags = 0x2134});
    const Bytes header = headerOf("N:\\Long name.txt");
    CHECK(header[1] == 12);
    CHECK(std::memcmp(&header[2], "LONGNA~1.TXT\0\0", 14) == 0);
    CHECK(header[73] == 0x21);
    CHECK(header[101] == 0x34);
    CHECK(header[81] == 0);
}

TEST_CASE("A fork of 4 GB or more is refused rather than cut") {
    TestPc pc;
    writeMacFile("M:\\file", {});
    ForkPathBuffers paths;
    GetForkPaths("M:\\file", paths);
    {
        // A hole, not bytes.
        const HANDLE file = CreateFileA("F:\\large", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        LONG high = 0;
        REQUIRE(SetFilePointer(file, -3, &high, FILE_BEGIN) == 0xFFFFFFFDu);
        DWORD written = 0;
        REQUIRE(WriteFile(file, "ab", 2, &written, nullptr));
        CloseHandle(file);
    }
    MacBinaryHeader header;
    HANDLE large = openForReading("F:\\large");
    CHECK(BuildMacBinaryHeader(paths.dataPath, paths.finderInfoPath, large, INVALID_HANDLE_VALUE, &header));
    CHECK(header.dataLength == 0xFFFFFFFFu);
    CloseHandle(large);
    {
        const HANDLE file = CreateFileA("F:\\large", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        SetFilePointer(file, 0, nullptr, FILE_END);
        DWORD written = 0;
        REQUIRE(WriteFile(file, "c", 1, &written, nullptr));
        CloseHandle(file);
    }
    large = openForReading("F:\\large");
    CHECK(!BuildMacBinaryHeader(paths.dataPath, paths.finderInfoPath, large, INVALID_HANDLE_VALUE, &header));
    CHECK(GetLastError() == ERROR_FILE_TOO_LARGE);
    CloseHandle(large);
}
