#include "convert/create_macbinary.h"

#include "support/scripted_progress_display.h"
#include "support/test_pc.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>

using namespace tidewell;

namespace {

constexpr char kOutput[] = "F:\\out.bin";

ErrorCode createFrom(const std::string& source, const std::string& output = kOutput) {
    return CreateMacBinaryFile(nullptr, source.c_str(), output.c_str(), nullptr);
}

size_t padded(size_t length) {
    return (length + 127) / 128 * 128;
}

// The forks stand where they belong, with zeros between.
void checkForks(const Bytes& packed, const MacFile& file) {
    const size_t resourceAt = 128 + padded(file.data.size());
    REQUIRE(packed.size() == resourceAt + padded(file.resource.size()));
    Bytes expected(packed.begin(), packed.begin() + 128);
    CHECK(expected[126] == 0);
    CHECK(expected[127] == 0);
    expected.insert(expected.end(), file.data.begin(), file.data.end());
    expected.resize(resourceAt);
    expected.insert(expected.end(), file.resource.begin(), file.resource.end());
    expected.resize(packed.size());
    CHECK(packed == expected);
}

}  // namespace

TEST_CASE("Forks of every length at a boundary are packed") {
    constexpr size_t kLengths[] = {0, 1, 127, 128, 129, 65535, 65536, 65537, 300000};
    TestPc pc;
    for (const char* path : {"M:\\file", "N:\\file"}) {
        for (const size_t length : kLengths) {
            const MacFile both = {.data = patternOf(length), .resource = patternOf(length, 99)};
            writeMacFile(path, both);
            CHECK(createFrom(path) == 0);
            checkForks(readFile(kOutput), both);

            const MacFile resourceOnly = {.data = {}, .resource = patternOf(length, 99)};
            writeMacFile(path, resourceOnly);
            CHECK(createFrom(path) == 0);
            checkForks(readFile(kOutput), resourceOnly);
        }
    }
    writeMacFile("M:\\plain", {.data = patternOf(500), .hasResource = false});
    CHECK(createFrom("M:\\plain") == 0);
    checkForks(readFile(kOutput), {.data = patternOf(500)});
    CHECK(pc.nothingHeld());
}

TEST_CASE("The shell is told once, and only of a whole file") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(10)});
    CHECK(createFrom("M:\\file") == 0);
    CHECK(pc.journal().countOn("SHChangeNotify", kOutput) == 1);
    const std::vector<pc::JournalEntry>& calls = pc.journal().entries();
    CHECK(calls[calls.size() - 1].call == "CloseHandle");
    pc.journal().clear();
    CHECK(createFrom("M:\\missing") != 0);
    CHECK(pc.journal().count("SHChangeNotify") == 0);
}

TEST_CASE("What keeps no Mac information is not packed") {
    TestPc pc;
    writeFile("F:\\file", patternOf(10));
    CHECK(createFrom("F:\\file") == ERROR_INVALID_PARAMETER);
    CHECK(createFrom("M:\\missing") == ERROR_INVALID_PARAMETER);
    CHECK(createFrom("X:\\missing") == ERROR_INVALID_PARAMETER);
    CHECK(createFrom("\\\\server\\share\\file") == ERROR_INVALID_PARAMETER);
    CHECK(createFrom("M:\\" + std::string(300, 'a')) == ERROR_INVALID_PARAMETER);
    writeFile("N:\\file", patternOf(10));
    CHECK(createFrom("N:\\file") == 0);
    std::filesystem::create_directory(pc.hostFolder('M') + "/folder");
    CHECK(createFrom("M:\\folder") == ERROR_ACCESS_DENIED);
    CHECK(!exists(kOutput));
    CHECK(pc.nothingHeld());
}

TEST_CASE("A source never becomes its own output") {
    TestPc pc;
    const MacFile file = {.data = patternOf(1000), .resource = patternOf(2000)};
    writeMacFile("M:\\file.bin", file);
    writeMacFile("N:\\A long name.bin", file);
    const std::string guid = "\\{4DD19184-ACE2-11CF-BBF2-444553540000}";
    const Bytes macInfo = readFile("M:\\file.bin" + guid);
    const Bytes ntfsInfo = readFile("N:\\A long name.bin:AFP_AfpInfo");

    CHECK(createFrom("M:\\file.bin", "M:\\file.bin") == ERROR_SHARING_VIOLATION);
    std::filesystem::create_hard_link(pc.hostFolder('M') + "/file.bin", pc.hostFolder('M') + "/link");
    CHECK(createFrom("M:\\file.bin", "M:\\link") == ERROR_SHARING_VIOLATION);
    for (const char* output : {"N:\\A long name.bin", "N:\\a LONG name.BIN", "N:\\ALONGN~1.BIN"})
        CHECK_MESSAGE(createFrom("N:\\A long name.bin", output) == ERROR_SHARING_VIOLATION, output);
    for (const char* output : {"N:\\A long name.bin:AFP_AfpInfo", "N:\\A long name.bin:AFP_Resource"})
        CHECK_MESSAGE(createFrom("N:\\A long name.bin", output) == ERROR_INVALID_NAME, output);
    CHECK(createFrom("M:\\file.bin", "M:\\file.bin" + guid) == ERROR_INVALID_NAME);
    CHECK(createFrom("M:\\file.bin", "M:\\._file.bin") != 0);

    CHECK(readFile("M:\\file.bin") == file.data);
    CHECK(readFile("M:\\file.bin" + guid) == macInfo);
    CHECK(readFile("M:\\file.bin\\{4DD19183-ACE2-11CF-BBF2-444553540000}") == file.resource);
    CHECK(readFile("N:\\A long name.bin") == file.data);
    CHECK(readFile("N:\\A long name.bin:AFP_AfpInfo") == ntfsInfo);
    CHECK(readFile("N:\\A long name.bin:AFP_Resource") == file.resource);
    CHECK(pc.nothingHeld());
}

TEST_CASE("An output that cannot be written leaves nothing behind") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(200000), .resource = patternOf(200000)});
    CHECK(createFrom("M:\\file", "F:\\no folder\\out.bin") == ERROR_PATH_NOT_FOUND);
    CHECK(createFrom("M:\\file", "\\\\.\\PhysicalDrive0") == ERROR_FILE_NOT_FOUND);
    CHECK(createFrom("M:\\file", "F:\\" + std::string(300, 'a')) == ERROR_FILENAME_EXCED_RANGE);
    pc.drive('F')->volume->setFreeSpace(300000);
    CHECK(createFrom("M:\\file") == ERROR_DISK_FULL);
    CHECK(!exists(kOutput));
    CHECK(pc.nothingHeld());
}

TEST_CASE("A damaged AppleDouble file is told, and left as it is") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(10), .resource = patternOf(10)});
    const std::string appleDouble = pc.hostFolder('M') + "/._file";
    std::filesystem::resize_file(appleDouble, 30);
    CHECK(createFrom("M:\\file") == ERROR_FILE_CORRUPT);
    CHECK(std::filesystem::file_size(appleDouble) == 30);
    CHECK(!exists(kOutput));
}

TEST_CASE("Progress counts the bytes of both forks") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(100000), .resource = patternOf(70000)});
    scripted_display::reset();
    ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    REQUIRE(progress != nullptr);
    const uint64_t total = 170000;
    ProgressSetTotal(progress, &total);
    CHECK(CreateMacBinaryFile(nullptr, "M:\\file", kOutput, &progress) == 0);
    uint64_t done = 0;
    ProgressGetDone(progress, &done);
    CHECK(done == total);
    ProgressDestroy(progress);
    progress = nullptr;
    CHECK(CreateMacBinaryFile(nullptr, "M:\\file", kOutput, &progress) == 0);
    CHECK(pc.nothingHeld());
}
