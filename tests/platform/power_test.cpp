// The power is cut: what was flushed is there, what was not is gone, and nothing is half.
#include "macfile/finder_info.h"
#include "macfile/fork_paths.h"
#include "pc/volumes/finder_record.h"
#include "support/test_pc.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

using pc::PowerCut;

namespace {

const MacFile kOld = {.data = bytesOf("data"), .resource = patternOf(3000)};
constexpr uint32_t kNewType = 0x4150504C;

bool changeType(const std::string& path) {
    const ForkPathsOf paths(path);
    tidewell::FinderInfoRecord record = {};
    if (!tidewell::ReadFinderInfo(paths, &record)) return false;
    (record.kind == tidewell::VolumeKindMac ? record.mac.finder : record.afp.finder).type = kNewType;
    return tidewell::WriteFinderInfo(paths, &record) != 0;
}

}  // namespace

TEST_CASE("What was not flushed is gone with the power, and every handle") {
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        TestPc pc;
        writeFile("F:\\old", bytesOf("old"));
        writeFile("F:\\gone", bytesOf("gone"));
        pc.flushAll();
        writeFile("F:\\new", bytesOf("new"));
        const HANDLE file = CreateFileA("F:\\old", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        DWORD written = 0;
        REQUIRE(WriteFile(file, "1", 1, &written, nullptr));
        REQUIRE(FlushFileBuffers(file));
        REQUIRE(WriteFile(file, "2345", 4, &written, nullptr));
        REQUIRE(DeleteFileA("F:\\gone"));
        pc.cutPower(cut);
        CHECK(pc.nothingHeld());
        CHECK_FALSE(CloseHandle(file));
        CHECK(readFile("F:\\old") == bytesOf("1ld"));
        CHECK_FALSE(exists("F:\\new"));
        CHECK(exists("F:\\gone") == (cut == PowerCut::losesNames));
    }
}

TEST_CASE("Finder information that was written is on the disk") {
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        for (const std::string path : {"M:\\file", "M:\\plain", "N:\\file"}) {
            CAPTURE(path);
            TestPc pc;
            if (path == "M:\\plain") {
                writeFile(path, kOld.data);
            } else {
                writeMacFile(path, kOld);
            }
            pc.flushAll();
            REQUIRE(changeType(path));
            pc.cutPower(cut);
            const MacFile file = readMacFile(path);
            CHECK(file.type == kNewType);
            CHECK(file.data == kOld.data);
            if (path != "M:\\plain") CHECK(file.resource == kOld.resource);
        }
    }
}

TEST_CASE("A file with a stream that was flushed has its name") {
    TestPc pc;
    writeFile("N:\\file", {});
    REQUIRE(changeType("N:\\file") == false);
    const HANDLE stream = CreateFileA("N:\\file:s", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    REQUIRE(FlushFileBuffers(stream));
    pc.cutPower();
    CHECK(exists("N:\\file"));
    CHECK(exists("N:\\file:s"));
}

TEST_CASE_FIXTURE(MacFolder,
                  "An AppleDouble file that is laid out anew is whole before it takes the old one's place") {
    folder.write("a", "data");
    const std::string old = appleDoubleHeader({{9, 50, 32}, {2, 82, 4}}) + std::string(32, 'i') + "fork";
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        folder.write("._a", old);
        pc::Opened opened;
        REQUIRE(openFile(*volume, std::string("a") + kFinderFile, openExisting, opened) == 0);
        std::string record = recordOf("a");
        record[521] = 1;  // for which there is no entry yet
        REQUIRE(opened.file->write(0, record.data(), record.size()) == 0);
        const std::string anew = folder.read("._a");
        REQUIRE(anew != old);
        opened = {};
        folder.memory().losePower(cut);
        CHECK(folder.read("._a") == (cut == PowerCut::keepsNames ? anew : old));
    }
}

TEST_CASE("A volume that flushes no Finder information waits for no disk") {
    MemoryFolder folder("/Volume");
    const auto volume = pc::makeMacVolume(folder.host(), folder.path(), pc::FinderFlush::withDataFork);
    folder.write("a", "");
    pc::Opened opened;
    REQUIRE(openFile(*volume, std::string("a") + kFinderFile, openExisting, opened) == 0);
    const std::string record(sizeof(pc::FinderRecord), 'x');
    REQUIRE(opened.file->write(0, record.data(), record.size()) == 0);
    REQUIRE(opened.file->flush() == 0);
    opened = {};
    folder.memory().losePower(PowerCut::losesNames);
    CHECK_FALSE(folder.has("._a"));
}

TEST_CASE("The power goes at every call of a change: the Finder information is the old or the new") {
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        for (const char* const path : {"M:\\file", "N:\\file"}) {
            bool hit = true;
            for (int n = 1; hit; ++n) {
                TestPc pc;
                writeMacFile(path, kOld);
                pc.flushAll();
                pc.faults().cutPower(n);
                const bool done = changeType(path);
                hit = pc.faults().hit();
                if (hit) CHECK(pc.faults().injected() == ERROR_GEN_FAILURE);
                pc.cutPower(cut);
                CAPTURE(n);
                MacFile file = readMacFile(path);
                CHECK((file.type == kNewType || (!done && file.type == kOld.type)));
                file.type = kOld.type;
                CHECK(file == keptOn(path[0], kOld));
            }
        }
    }
}
