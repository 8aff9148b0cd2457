// What a replaced file keeps of its Finder information.
#include "convert/restore_finder_info.h"

#include "support/extraction_case.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

using namespace tidewell;

namespace {

// A file whose header leaves 0 what it can.
const MacFile kBare = {.data = patternOf(5),
                       .type = 0,
                       .creator = 0,
                       .flags = 0,
                       .vertical = 0,
                       .horizontal = 0,
                       .window = 0,
                       .attributes = 0};

// Zeros instead of what is always replaced.
Bytes without(const Bytes& record, size_t position, size_t attributes, size_t attributesSize) {
    Bytes left;
    for (size_t i = 0; i < record.size(); ++i) {
        const bool replaced = i - position < 4 || i - attributes < attributesSize;
        left.push_back(replaced ? 0 : record[i]);
    }
    return left;
}

}  // namespace

TEST_CASE("Fields that are 0 in the header keep what the file had") {
    for (const std::string path : {"M:\\Test", "N:\\Test"}) {
        CAPTURE(path);
        TestPc pc;
        const MacFile had = {.data = patternOf(9), .resource = patternOf(3)};
        writeMacFile(path, had);
        CHECK(extractBytes(macBinaryFile({kBare}), ".bin", path.substr(0, 2)) == 0);
        const MacFile merged = {.data = patternOf(5), .vertical = 0, .horizontal = 0, .attributes = 0};
        CHECK(readMacFile(path) == merged);
    }
}

TEST_CASE("Of a record on NTFS everything else is kept, on a disk that forgets streams, too") {
    for (const bool keepsStreams : {false, true}) {
        TestPc pc;
        pc.drive('N')->volume->setKeepsStreams(keepsStreams);
        const Bytes foreign = patternOf(60);
        writeFile("N:\\Test:AFP_AfpInfo", foreign);
        CHECK(extractBytes(macBinaryFile({kBare}), ".bin", "N:") == 0);
        Bytes wanted = without(foreign, 26, 0, 8);
        const Bytes mark = {'A', 'F', 'P', 0, 0, 0, 1, 0};
        std::copy(mark.begin(), mark.end(), wanted.begin());
        CHECK(readFile("N:\\Test:AFP_AfpInfo") == wanted);
    }
}

TEST_CASE("Of a driver's record everything else is as the driver has it at the end") {
    const TestPc pc;
    const std::string recordPath = "F:\\record";
    ForkPathBuffers paths;
    paths.kind = VolumeKindMac;
    std::strcpy(paths.finderInfoPath, recordPath.c_str());
    writeFile(recordPath, patternOf(1155, 1));
    FinderInfoRecord had;
    REQUIRE(ReadFinderInfoToKeep(paths, had) == 0);
    const Bytes now = patternOf(1155, 2);
    writeFile(recordPath, now);
    MacBinaryHeader header;
    std::memset(static_cast<void*>(&header), 0, sizeof header);
    header.type = 0x41424344;
    REQUIRE(WriteFinderInfoFromHeader(paths, had, header));

    Bytes wanted = now;
    const Bytes before = patternOf(1155, 1);
    std::copy_n(&before[523], 16, &wanted[523]);
    wanted = without(wanted, 533, 521, 2);
    std::memcpy(&wanted[523], "ABCD", 4);
    CHECK(readFile(recordPath) == wanted);

    paths.kind = VolumeKindOther;
    CHECK(!WriteFinderInfoFromHeader(paths, had, header));
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
}

TEST_CASE("Mac information whose file is gone is kept like that of a file") {
    TestPc pc;
    writeMacFile("M:\\Test", {});
    pc.folder().remove("M/Test");
    CHECK(extractBytes(macBinaryFile({kBare}), ".bin", "M:") == 0);
    CHECK(readMacFile("M:\\Test").type == MacFile{}.type);
}

TEST_CASE("What cannot be looked at stops an extraction before the file is touched") {
    for (const std::string path : {"M:\\Test", "N:\\Test"}) {
        for (const char* const call : {"ReadFile", "CreateFileA", "GetFileAttributesA"}) {
            TestPc pc;
            const MacFile had = {.data = patternOf(9), .resource = patternOf(3)};
            writeMacFile(path, had);
            // The driver finds its files itself.
            const bool look = call[0] == 'G';
            if (look && path[0] == 'M') continue;
            pc.faults().failAlways(call, look ? path : ForkPathsOf(path).finderInfoPath, ERROR_NOT_READY);
            const ErrorCode error = extractBytes(macBinaryFile({kBare}), ".bin", path.substr(0, 2));
            CHECK_MESSAGE(error == ERROR_NOT_READY, call);
            pc.faults().clear();
            CHECK(readMacFile(path) == keptOn(path[0], had));
        }
    }
}
