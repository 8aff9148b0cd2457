#include "macfile/finder_info.h"

#include "base/error_code.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string_view>

using namespace tidewell;

namespace {

constexpr char kMacPath[] = "M:\\file\\{4DD19184-ACE2-11CF-BBF2-444553540000}";
constexpr char kNtfsPath[] = "N:\\file:AFP_AfpInfo";

}  // namespace

TEST_CASE("Finder information is read and written on Mac volumes") {
    TestPc pc;
    writeMacFile("M:\\file", {.data = patternOf(300), .resource = patternOf(77)});
    FinderInfoRecord record;
    REQUIRE(ReadFinderInfo(kMacPath, &record));
    CHECK(record.kind == VolumeKindMac);
    CHECK(record.mac.finder.type == 0x54455854);
    CHECK(record.mac.finder.window == 0x0506);
    CHECK(record.mac.attributes == 1);
    CHECK(record.mac.dataForkLength == 300);
    CHECK(record.mac.resourceForkLength == 77);
    CHECK(record.mac.nameLength == 4);
    CHECK(std::memcmp(record.mac.name, "file", 4) == 0);

    record.mac.finder.type = 0x41424344;
    REQUIRE(WriteFinderInfo(kMacPath, &record));
    REQUIRE(ReadFinderInfo(kMacPath, &record));
    CHECK(record.mac.finder.type == 0x41424344);
    CHECK(readFile("M:\\file\\{4DD19183-ACE2-11CF-BBF2-444553540000}") == patternOf(77));

    CHECK(!ReadFinderInfo("M:\\missing\\{4DD19184-ACE2-11CF-BBF2-444553540000}", &record));
    CHECK(GetLastError() != 0);
    record.kind = VolumeKindNtfs;
    CHECK(!WriteFinderInfo(kMacPath, &record));
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Finder information is read and written on NTFS") {
    TestPc pc;
    writeFile("N:\\file", {});
    FinderInfoRecord record;
    CHECK(!ReadFinderInfo(kNtfsPath, &record));
    CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    CHECK(record.kind == VolumeKindNtfs);

    // A missing stream is created by the write.
    record.afp.finder.creator = 0x41424344;
    REQUIRE(WriteFinderInfo(kNtfsPath, &record));
    const Bytes stream = readFile(kNtfsPath);
    REQUIRE(stream.size() == 60);
    CHECK(std::memcmp(&stream[20], "ABCD", 4) == 0);
    REQUIRE(ReadFinderInfo(kNtfsPath, &record));

    // What this system does not know is kept.
    Bytes foreign = patternOf(60);
    writeFile(kNtfsPath, foreign);
    REQUIRE(ReadFinderInfo(kNtfsPath, &record));
    REQUIRE(WriteFinderInfo(kNtfsPath, &record));
    CHECK(readFile(kNtfsPath) == foreign);

    writeFile(kNtfsPath, patternOf(59));
    CHECK(!ReadFinderInfo(kNtfsPath, &record));
    CHECK(GetLastError() == ERROR_HANDLE_EOF);
    CHECK(!ReadFinderInfo("F:\\file", &record));
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Every failure of reading and writing Finder information is told") {
    for (const bool mac : {true, false}) {
        const char* const path = mac ? kMacPath : kNtfsPath;
        for (int n = 1;; ++n) {
            TestPc pc;
            writeMacFile(mac ? "M:\\file" : "N:\\file", {});
            FinderInfoRecord record;
            pc.faults().failCall(n, ERROR_CRC);
            const bool read = ReadFinderInfo(path, &record) != 0;
            const ErrorCode readError = GetLastError();
            const bool written = read && WriteFinderInfo(path, &record);
            const ErrorCode error = read ? GetLastError() : readError;
            CHECK(pc.nothingHeld());
            if (!pc.faults().hit()) break;
            CAPTURE(pc.journal().text());
            const std::string_view call = pc.faults().hitCall();
            // On NTFS a failed look for the driver's pseudo-file changes nothing.
            if (read && written) {
                CHECK(!mac);
                CHECK(call == "CreateFileA");
            } else {
                CHECK((error == ERROR_CRC || error == ERROR_INVALID_PARAMETER));
            }
        }
    }
}
