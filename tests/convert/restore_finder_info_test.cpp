// What a replaced file keeps of its Finder information.
#include "convert/restore_finder_info.h"

#include "support/extraction_case.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

using namespace tidewell;

namespace {

// A file whose header leaves 0 what it can.
const MacFile kBare = keptOn('F', {.data = patternOf(5)});

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
    TestPc pc;
    writeMacFile("M:\\Test", {.data = patternOf(9), .resource = patternOf(3)});
    CHECK(extractBytes(macBinaryFile({kBare}), ".bin", "M:") == 0);
    const MacFile merged = {.data = patternOf(5), .vertical = 0, .horizontal = 0, .attributes = 0};
    CHECK(readMacFile("M:\\Test") == merged);
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
    const char recordPath[] = "F:\\record";
    const Bytes before = patternOf(1155, 1);
    ForkPathBuffers paths;
    paths.kind = VolumeKindMac;
    std::strcpy(paths.finderInfoPath, recordPath);
    writeFile(recordPath, before);
    FinderInfoRecord had;
    REQUIRE(ReadFinderInfoToKeep(paths, had) == 0);
    const Bytes now = patternOf(1155, 2);
    writeFile(recordPath, now);
    MacBinaryHeader header;
    std::memset(static_cast<void*>(&header), 0, sizeof header);
    header.type = 0x41424344;
    REQUIRE(WriteFinderInfoFromHeader(paths, had, header));

    Bytes wanted = now;
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
