#include "convert/create_macbinary.h"

#include "base/file.h"
#include "convert/macbinary_header.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

constexpr char kOutput[] = "F:\\out.bin";

ErrorCode createFrom(const std::string& source, const std::string& output = kOutput) {
    return CreateMacBinaryFile(nullptr, source.c_str(), output.c_str(), nullptr);
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

TEST_CASE("What cannot be packed, and where nothing can be put") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(200000), .resource = patternOf(200000)});
    writeFile("F:\\file", patternOf(10));
    pc.folder().makeFolder("M/folder");
    pc.drive('F')->volume->setFreeSpace(300000);
    const struct {
        std::string source, output;
        ErrorCode error;
    } rows[] = {
        {"F:\\file", kOutput, ERROR_INVALID_PARAMETER},
        {"M:\\missing", kOutput, ERROR_INVALID_PARAMETER},
        {"X:\\missing", kOutput, ERROR_INVALID_PARAMETER},
        {"\\\\server\\share\\file", kOutput, ERROR_INVALID_PARAMETER},
        {"M:\\" + std::string(300, 'a'), kOutput, ERROR_INVALID_PARAMETER},
        {"M:\\folder", kOutput, ERROR_ACCESS_DENIED},
        {"M:\\file", "F:\\no folder\\out.bin", ERROR_PATH_NOT_FOUND},
        {"M:\\file", "\\\\.\\PhysicalDrive0", ERROR_INVALID_NAME},
        {"M:\\file", "F:\\" + std::string(300, 'a'), ERROR_FILENAME_EXCED_RANGE},
        {"M:\\file", kOutput, ERROR_DISK_FULL},
    };
    for (const auto& row : rows) {
        CHECK_MESSAGE(createFrom(row.source, row.output) == row.error, row.source << " " << row.output);
        CHECK(pc.folder().names("F") == std::vector<std::string>{"file"});
    }
    writeFile("N:\\plain", patternOf(10));
    CHECK(createFrom("N:\\plain") == 0);
    CHECK(!exists(kOutput));
    CHECK(pc.nothingHeld());
}

TEST_CASE("What the looks at a source tell: nothing to pack, no volume for it, or an error") {
    const struct {
        const char* call;
        const char* path;
        ErrorCode look, error;
    } rows[] = {
        {"GetFileAttributesA", "N:\\file:AFP_AfpInfo", ERROR_FILE_NOT_FOUND, 0},
        {"GetFileAttributesA", "N:\\file:AFP_AfpInfo", ERROR_PATH_NOT_FOUND, 0},
        {"GetFileAttributesA", "N:\\file:AFP_AfpInfo", ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED},
        {"GetShortPathNameA", "N:\\file", ERROR_NOT_READY, ERROR_NOT_READY},
        {"GetShortPathNameA", "N:\\file", ERROR_BAD_NETPATH, ERROR_INVALID_PARAMETER},
        {"GetVolumeInformationA", "N:\\", ERROR_BAD_NETPATH, ERROR_BAD_NETPATH},
        {"GetVolumeInformationA", "N:\\", ERROR_PATH_NOT_FOUND, ERROR_PATH_NOT_FOUND},
    };
    for (const auto& row : rows) {
        TestPc pc;
        writeMacFile("N:\\file", {});
        pc.faults().failAlways(row.call, row.path, row.look);
        CHECK(createFrom("N:\\file") == row.error);
        CHECK(!exists(kOutput));
    }
    CHECK(CreateMacBinaryFile(nullptr, nullptr, kOutput, nullptr) == ERROR_INVALID_PARAMETER);
    CHECK(CreateMacBinaryFile(nullptr, "N:\\file", nullptr, nullptr) == ERROR_INVALID_PARAMETER);
}

TEST_CASE("A source never becomes its own output") {
    TestPc pc;
    const MacFile file = {.data = patternOf(1000), .resource = patternOf(2000)};
    const std::string mac = "M:\\file.bin";
    const std::string ntfs = "N:\\A long name.bin";
    writeMacFile(mac, file);
    writeMacFile(ntfs, file);
    pc.folder().link("M/file.bin", "M/link");
    CHECK(createFrom(mac, "M:\\link") == ERROR_SHARING_VIOLATION);
    CHECK(createFrom(ntfs, "N:\\a LONG name.BIN") == ERROR_SHARING_VIOLATION);
    for (const char* stream : {":AFP_AfpInfo", ":AFP_Resource"})
        CHECK_MESSAGE(createFrom(ntfs, ntfs + stream) == ERROR_INVALID_NAME, stream);
    CHECK(createFrom(mac, mac + "\\{4DD19184-ACE2-11CF-BBF2-444553540000}") == ERROR_INVALID_NAME);
    CHECK(createFrom(mac, "M:\\._file.bin") != 0);
    CHECK(readMacFile(mac) == file);
    CHECK(readMacFile(ntfs) == keptOn('N', file));
    CHECK(pc.nothingHeld());
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
