#include "convert/create_macbinary.h"

#include "base/file.h"
#include "convert/macbinary_header.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

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
