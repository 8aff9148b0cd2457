#include "macfile/finder_info.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("Finder information that cannot be had is told") {
    TestPc pc;
    writeFile("N:\\short:AFP_AfpInfo", patternOf(59));
    for (const char* file : {"N:\\file", "M:\\gone", "F:\\file"})
        writeFile(file, {});
    const struct {
        const char* path;
        ErrorCode readError;
    } rows[] = {
        {"M:\\gone", ERROR_FILE_NOT_FOUND},
        {"N:\\file", ERROR_FILE_NOT_FOUND},
        {"N:\\short", ERROR_HANDLE_EOF},
        {"F:\\file", ERROR_INVALID_PARAMETER},
    };
    for (const auto& row : rows) {
        CAPTURE(row.path);
        const ForkPathsOf paths(row.path);
        if (row.path[0] == 'M') DeleteFileA(row.path);
        FinderInfoRecord record;
        CHECK(!ReadFinderInfo(paths, &record));
        CHECK(GetLastError() == row.readError);
        record.kind = row.path[0] == 'N' ? VolumeKindMac : VolumeKindNtfs;  // another volume's
        CHECK(!WriteFinderInfo(paths, &record));
        CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    }
    CHECK(!exists("N:\\file:AFP_AfpInfo"));
    CHECK(pc.nothingHeld());
}

TEST_CASE("A driver that knows no flush has kept what was written; any other error of it is told") {
    for (const char* path : {"M:\\file", "N:\\file"}) {
        for (const ErrorCode error : {ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED, ERROR_IO_DEVICE}) {
            TestPc pc;
            writeMacFile(path, {});
            const ForkPathsOf paths(path);
            FinderInfoRecord record;
            REQUIRE(ReadFinderInfo(paths, &record));
            pc.faults().failAlways("FlushFileBuffers", paths.finderInfoPath, error);
            CHECK(WriteFinderInfo(paths, &record) == (error != ERROR_IO_DEVICE));
            if (error == ERROR_IO_DEVICE) CHECK(GetLastError() == error);
            CHECK(pc.faults().hit());
            CHECK(pc.nothingHeld());
        }
    }
}
