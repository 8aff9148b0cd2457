#include "macfile/finder_info.h"

#include "base/error_code.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("Finder information is read and written back whole") {
    TestPc pc;
    const MacFile file = {.data = patternOf(300), .resource = patternOf(77)};
    FinderInfoRecord record;
    writeMacFile("M:\\file", file);
    REQUIRE(ReadFinderInfo("M:\\file\\{4DD19184-ACE2-11CF-BBF2-444553540000}", &record));
    CHECK(record.kind == VolumeKindMac);
    CHECK(record.mac.dataForkLength == 300);
    CHECK(record.mac.resourceForkLength == 77);
    REQUIRE(WriteFinderInfo("M:\\file\\{4DD19184-ACE2-11CF-BBF2-444553540000}", &record));
    CHECK(readMacFile("M:\\file") == file);

    // What this system does not know is kept.
    const Bytes foreign = patternOf(60);
    writeFile("N:\\file:AFP_AfpInfo", foreign);
    REQUIRE(ReadFinderInfo("N:\\file:AFP_AfpInfo", &record));
    CHECK(record.kind == VolumeKindNtfs);
    REQUIRE(WriteFinderInfo("N:\\file:AFP_AfpInfo", &record));
    REQUIRE(WriteFinderInfo("N:\\new:AFP_AfpInfo", &record));
    CHECK(readFile("N:\\file:AFP_AfpInfo") == foreign);
    CHECK(readFile("N:\\new:AFP_AfpInfo") == foreign);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Finder information that cannot be had is told") {
    TestPc pc;
    writeFile("N:\\file", {});
    writeFile("N:\\short:AFP_AfpInfo", patternOf(59));
    const struct {
        const char* path;
        ErrorCode readError;
    } rows[] = {
        {"M:\\missing\\{4DD19184-ACE2-11CF-BBF2-444553540000}", ERROR_FILE_NOT_FOUND},
        {"N:\\file:AFP_AfpInfo", ERROR_FILE_NOT_FOUND},
        {"N:\\short:AFP_AfpInfo", ERROR_HANDLE_EOF},
        {"F:\\file", ERROR_INVALID_PARAMETER},
    };
    for (const auto& row : rows) {
        CAPTURE(row.path);
        FinderInfoRecord record;
        CHECK(!ReadFinderInfo(row.path, &record));
        CHECK(GetLastError() == row.readError);
        record.kind = row.path[0] == 'N' ? VolumeKindMac : VolumeKindNtfs;  // another volume's
        CHECK(!WriteFinderInfo(row.path, &record));
        CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    }
    CHECK(pc.nothingHeld());
}
