#include "convert/create_macbinary.h"

#include "convert/macbinary_header.h"
#include "macfile/fork_paths.h"
#include "support/archive_writer.h"
#include "support/scripted_user.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

constexpr char kOutput[] = "F:\\out.bin";

ErrorCode createFrom(const std::string& source, const std::string& output = kOutput) {
    ProgressDialog* none = nullptr;
    return CreateMacBinaryFile(nullptr, source.c_str(), output.c_str(), &none);
}

}  // namespace

TEST_CASE("Forks of every length at a boundary are packed, with name and Finder information") {
    TestPc pc;
    const auto check = [](const std::string& path, const std::string& name, const MacFile& file) {
        writeMacFile(path, file);
        REQUIRE(CreateMacBinaryFile(nullptr, path.c_str(), kOutput, nullptr) == 0);
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

TEST_CASE("Whole pages of the output are written, and the user is heard after each 64 KiB of a fork") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(300000), .resource = patternOf(65536)});
    pc.journal().clear();
    ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    REQUIRE(CreateMacBinaryFile(nullptr, "M:\\file", kOutput, &progress) == 0);
    CHECK(scriptedUser.positions.size() == 6);
    CHECK(progress->done == 365536);
    ProgressDestroy(progress);
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

TEST_CASE("A file without Finder information gives nothing, under whatever error that is told") {
    for (const ErrorCode error : {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_ACCESS_DENIED}) {
        TestPc pc;
        writeMacFile("N:\\file", {});
        pc.faults().failAlways("GetFileAttributesA", "N:\\file:AFP_AfpInfo", error);
        CHECK(createFrom("N:\\file") == (error == ERROR_ACCESS_DENIED ? error : 0));
        CHECK(!exists(kOutput));
    }
    CHECK(CreateMacBinaryFile(nullptr, nullptr, kOutput, nullptr) == ERROR_INVALID_PARAMETER);
    CHECK(CreateMacBinaryFile(nullptr, "N:\\file", nullptr, nullptr) == ERROR_INVALID_PARAMETER);
}

TEST_CASE("A drive without its disk is told, a volume that cannot be there counts as keeping nothing") {
    const struct {
        const char* call;
        ErrorCode look, error;
    } rows[] = {{"GetShortPathNameA", ERROR_NOT_READY, ERROR_NOT_READY},
                {"GetShortPathNameA", ERROR_IO_DEVICE, ERROR_IO_DEVICE},
                {"GetShortPathNameA", ERROR_BAD_NETPATH, ERROR_INVALID_PARAMETER},
                {"GetVolumeInformationA", ERROR_BAD_NETPATH, ERROR_BAD_NETPATH},
                {"GetVolumeInformationA", ERROR_PATH_NOT_FOUND, ERROR_PATH_NOT_FOUND}};
    for (const auto& row : rows) {
        TestPc pc;
        writeMacFile("N:\\file", {});
        const bool shortPath = row.call[3] == 'S';
        pc.faults().failAlways(row.call, shortPath ? "N:\\file" : "N:\\", row.look);
        CHECK(createFrom("N:\\file") == row.error);
    }
}

TEST_CASE("A source never becomes its own output") {
    TestPc pc;
    const MacFile file = {.data = patternOf(1000), .resource = patternOf(2000)};
    const std::string mac = "M:\\file.bin";
    const std::string ntfs = "N:\\A long name.bin";
    writeMacFile(mac, file);
    writeMacFile(ntfs, file);
    pc.folder().link("M/file.bin", "M/link");
    for (const char* output : {"M:\\file.bin", "M:\\link"})
        CHECK_MESSAGE(createFrom(mac, output) == ERROR_SHARING_VIOLATION, output);
    for (const char* output : {"N:\\A long name.bin", "N:\\a LONG name.BIN", "N:\\ALONGN~1.BIN"})
        CHECK_MESSAGE(createFrom(ntfs, output) == ERROR_SHARING_VIOLATION, output);
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
        const HANDLE large =
            CreateFileA("M:\\file", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        MacBinaryHeader header;
        const bool fits = size <= 0xFFFFFFFF;
        CHECK(BuildMacBinaryHeader(paths, large, INVALID_HANDLE_VALUE, &header) == (fits ? TRUE : FALSE));
        CHECK((fits ? header.dataLength == size : GetLastError() == ERROR_FILE_TOO_LARGE));
        CloseHandle(large);
    }
}
