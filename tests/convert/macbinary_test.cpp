#include "base/file.h"
#include "convert/create_macbinary.h"
#include "convert/macbinary_crc.h"
#include "convert/macbinary_header.h"
#include "support/extraction_case.h"
#include "ui/confirm_replace.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(70000), .resource = patternOf(333, 3)};
const MacBinaryFile kSmall = {.file = {.data = patternOf(200), .resource = patternOf(130)}};

constexpr char kOutput[] = "F:\\out.bin";

ErrorCode createFrom(const std::string& source) {
    return CreateMacBinaryFile(nullptr, source.c_str(), kOutput, nullptr);
}

}  // namespace

TEST_CASE("Forks of every length at a boundary are packed, with name and Finder information") {
    TestPc pc;
    const auto check = [](const std::string& path, const std::string& name, const MacFile& file) {
        writeMacFile(path, file);
        REQUIRE(createFrom(path) == 0);
        CHECK(readFile(kOutput) == macBinaryFile({.file = keptOn(path[0], file), .name = bytesOf(name)}));
    };
    for (const size_t length : {0u, 1u, 127u, 128u, 129u, 65535u, 65536u, 65537u, 300000u}) {
        const Bytes data = patternOf(length);
        const Bytes resource = patternOf(length, 99);
        check("M:\\A name of its own", "A name of its own", {.data = data, .resource = resource});
        check("N:\\Long name.txt", "LONGNA~1.TXT", {.data = data, .resource = resource, .flags = 0x2134});
        check("M:\\resource", "resource", {.resource = resource});
        check("N:\\data", "data", {.data = data, .hasResource = false});
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Whole pages of the output are written, in blocks of 64 KiB") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(300000), .resource = patternOf(65536)});
    pc.journal().clear();
    REQUIRE(createFrom("M:\\file") == 0);
    std::vector<uint64_t> starts;
    uint64_t position = 0;
    for (const pc::JournalEntry& entry : pc.journal().entries()) {
        if (entry.call != "WriteFile") continue;
        starts.push_back(position);
        position += entry.amount;
    }
    // The header and what ends it; the data fork's five blocks and padding; the resource fork, in one block.
    CHECK(starts == std::vector<uint64_t>{0, 126, 128, 65536, 131072, 196608, 262144, 300128, 300160});
}

TEST_CASE("What the looks at a source tell: nothing to pack, no volume for it, or an error") {
    const auto check = [](const char* call, const char* path, ErrorCode look, ErrorCode error) {
        INFO(call, " ", path, " ", look);
        TestPc pc;
        writeMacFile("N:\\file", {});
        pc.faults().failAlways(call, path, look);
        CHECK(createFrom("N:\\file") == error);
        CHECK(!exists(kOutput));
    };
    check("GetFileAttributesA", "N:\\file:AFP_AfpInfo", ERROR_FILE_NOT_FOUND, 0);
    check("GetFileAttributesA", "N:\\file:AFP_AfpInfo", ERROR_PATH_NOT_FOUND, 0);
    check("GetFileAttributesA", "N:\\file:AFP_AfpInfo", ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED);
    check("GetFileAttributesA", "N:\\file", ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED);
    check("CreateFileA", "N:\\file:AFP_Resource", ERROR_NOT_READY, ERROR_NOT_READY);
    check("GetShortPathNameA", "N:\\file", ERROR_NOT_READY, ERROR_NOT_READY);
    check("GetShortPathNameA", "N:\\file", ERROR_BAD_NETPATH, ERROR_INVALID_PARAMETER);
    check("GetVolumeInformationA", "N:\\", ERROR_BAD_NETPATH, ERROR_BAD_NETPATH);
    // Windows 95 and 98 leave it to the driver.
    TestPc windows98(pc::Platform::windows98);
    writeMacFile("M:\\file", {});
    windows98.faults().failAlways("GetFileAttributesA", ForkPathsOf("M:\\file").finderInfoPath, ERROR_CRC);
    CHECK(createFrom("M:\\file") == 0);
}

TEST_CASE("A name that no Mac has room for is cut") {
    TestPc pc;
    writeMacFile("M:\\file", {});
    writeFile("F:\\record", Bytes(sizeof(MacVolumeInfo), 0xFF));
    ForkPathsOf paths("M:\\file");
    std::strcpy(paths.finderInfoPath, "F:\\record");
    OwnedFile data;
    REQUIRE(OpenForReading("M:\\file", data) == 0);
    MacBinaryHeader header;
    REQUIRE(BuildMacBinaryHeader(paths, data.get(), INVALID_HANDLE_VALUE, &header));
    CHECK(header.nameLength == 31);
    // NTFS may be without 8.3 names.
    pc.setCodePage(932);
    const std::string one(30, 'n');
    for (const std::string& name : {one + "n", one + "nn", one + "\x93\xFA"}) {
        writeMacFile("N:\\" + name, {});
        ForkPathBuffers kept;
        std::strcpy(kept.dataPath, ("N:\\" + name).c_str());
        GetForkPaths(kept.dataPath, kept);
        REQUIRE(BuildMacBinaryHeader(kept, data.get(), INVALID_HANDLE_VALUE, &header));
        CHECK(header.nameLength == (name[30] == 'n' ? 31 : 30));
    }
}

TEST_CASE("A fork of 4 GB or more is refused rather than cut") {
    TestPc pc;
    writeMacFile("M:\\file", {});
    const ForkPathsOf paths("M:\\file");
    for (const uint64_t size : {uint64_t{0xFFFFFFFF}, uint64_t{0x100000000}}) {
        pc.folder().resize("M/file", size);
        OwnedFile large;
        REQUIRE(OpenForReading("M:\\file", large) == 0);
        MacBinaryHeader header;
        const BOOL fits = size <= 0xFFFFFFFF;
        CHECK(BuildMacBinaryHeader(paths, large.get(), INVALID_HANDLE_VALUE, &header) == fits);
        CHECK((fits ? header.dataLength == size : GetLastError() == ERROR_FILE_TOO_LARGE));
    }
}

TEST_CASE("A MacBinary file of each version gives its Mac file back on each volume") {
    const MacBinaryFile versions[] = {
        {.file = kFile, .withCrc = false},
        {.file = kFile, .writerVersion = 130, .readerVersion = 129, .secondaryHeader = 1},
        {.file = kFile, .secondaryHeader = 300},
    };
    for (const std::string path : {"M:\\Test", "N:\\Test", "F:\\Test"}) {
        for (const MacBinaryFile& version : versions) {
            TestPc pc;
            CHECK(extractBytes(macBinaryFile(version), ".bin", path.substr(0, 2)) == 0);
            CHECK(readMacFile(path) == keptOn(path[0], kFile));
            if (path[0] != 'N') continue;
            const Bytes start = {'A', 'F', 'P', 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 'T', 'E', 'X', 'T'};
            const Bytes record = readFile(path + ":AFP_AfpInfo");
            CHECK(record.size() == 60);
            CHECK(cutTo(record, 20) == start);
        }
    }
}

TEST_CASE("Truncated anywhere, a MacBinary file leaves nothing") {
    MacBinaryFile file = kSmall;
    file.secondaryHeader = 5;
    const Bytes whole = macBinaryFile(file);
    TestPc pc;
    for (size_t size = 0; size < whole.size(); ++size) {
        const std::string drive(1, "MNF"[size % 3]);
        // The size check knows nothing of the secondary header, and the last padding is not read.
        const size_t needed = drive == "F" ? 128 + 256 + 256 : 128 + 128 + 256 + 130;
        const ErrorCode error = extractBytes(cutTo(whole, size), ".bin", drive + ":");
        CHECK_MESSAGE(error == (size >= needed ? 0 : ERROR_HANDLE_EOF), size);
        const std::string output = drive + ":\\Test";
        CHECK(exists(output) == (error == 0));
        CHECK(pc.nothingHeld());
        DeleteFileA(output.c_str());
    }
}

TEST_CASE("Any flipped bit of a header with a CRC is told before anything is made or asked") {
    const Bytes bytes = macBinaryFile(kSmall);
    TestPc pc;
    for (size_t bit = 0; bit < 126 * 8; ++bit) {
        Bytes flipped = bytes;
        flipped[bit / 8] ^= static_cast<uint8_t>(0x80 >> bit % 8);
        CHECK_MESSAGE(extractBytes(flipped, ".bin", "N:") == ERROR_CRC, bit);
    }
    CHECK(pc.folder().names("N").empty());
}

TEST_CASE("Lengths that lie, names of every length, and versions") {
    TestPc pc;
    for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFF80u, 0xFFFFFF81u, 0xFFFFFFFFu}) {
        for (const size_t at : {83u, 87u}) {
            Bytes bytes = macBinaryFile(kSmall);
            storeBig(bytes, at, 4, length);
            setMacBinaryCrc(bytes);
            CHECK(extractBytes(bytes, ".bin", "M:") == ERROR_HANDLE_EOF);
            CHECK(!exists("M:\\Test"));
        }
    }
    for (const size_t length : {0u, 1u, 31u, 32u, 63u, 64u, 255u}) {
        const ErrorCode error = extractBytes(macBinaryFile({.name = Bytes(length, 'n')}), ".bin", "N:");
        CHECK(error == (length >= 1 && length <= 63 ? 0 : ERROR_INVALID_DATA));
        if (error == 0) CHECK(exists("N:\\" + std::string(length, 'n')));
    }
    for (unsigned version = 0; version < 256; ++version) {
        const MacBinaryFile file = {.readerVersion = static_cast<uint8_t>(version)};
        CHECK(extractBytes(macBinaryFile(file), ".bin", "F:") ==
              (version == 0 || version >= 129 ? 0 : ERROR_INVALID_DATA));
    }
}

TEST_CASE("An existing file is replaced only when the user says so") {
    TestPc pc;
    writeFile("F:\\in.bin", macBinaryFile({kFile}));
    writeFile("F:\\Test", bytesOf("old"));
    DWORD flags = 0;
    const auto extract = [&flags](int answer, DWORD error = 0) {
        scriptedUser.answer = answer;
        scriptedUser.answerError = error;
        scriptedUser.asked = 0;
        return ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\", &flags, nullptr);
    };
    CHECK(extract(IDNO) == 0);
    CHECK(scriptedUser.asked == 1);
    CHECK(!scriptedUser.several);
    CHECK(extract(IDCANCEL) == ERROR_CANCELLED);
    CHECK(extract(-1, ERROR_NOT_ENOUGH_MEMORY) == ERROR_NOT_ENOUGH_MEMORY);
    // What is none of the answers is no leave to replace.
    for (const int answer : {0, IDOK, 3, 8, -1, -2})
        CHECK(extract(answer) == ERROR_FILE_EXISTS);
    CHECK(readFile("F:\\Test") == bytesOf("old"));
    CHECK(flags == 0);

    flags = kMoreFollow;
    CHECK(extract(IDYESTOALL) == 0);
    CHECK(scriptedUser.several);
    CHECK(flags == (kMoreFollow | kReplaceAll));
    writeFile("F:\\Test", bytesOf("old"));
    CHECK(extract(IDNO) == 0);
    CHECK(scriptedUser.asked == 0);
    CHECK(readFile("F:\\Test") == kFile.data);

    // A file in use is not touched, though the user agreed.
    const OwnedFile inUse(
        CreateFileA("F:\\Test", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    CHECK(extract(IDYES) == ERROR_SHARING_VIOLATION);
    CHECK(readFile("F:\\Test") == kFile.data);
}

TEST_CASE("The CRC of MacBinary") {
    const Bytes bytes = patternOf(30000, 7);
    for (const size_t size : {0u, 1u, 2u, 15u, 16u, 17u, 31u, 32u, 124u, 1000u, 8191u, 8192u, 30000u})
        CHECK(MacBinaryCrc(bytes.data(), size) == crcOf(bytes.data(), size));
    CHECK(MacBinaryCrc("123456789", 9) == 0x31C3);
}
