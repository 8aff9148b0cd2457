// The power is cut: what was flushed is there, what was not is gone, and nothing is half.
#include "macfile/finder_info.h"
#include "pc/volumes/finder_record.h"
#include "support/test_pc.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

using pc::PowerCut;

namespace {

constexpr uint32_t kNewType = 0x4150504C;

bool changeType(const std::string& path) {
    const ForkPathsOf paths(path);
    tidewell::FinderInfoRecord record = {};
    if (!tidewell::ReadFinderInfo(paths, &record)) return false;
    (record.kind == tidewell::VolumeKindMac ? record.mac.finder : record.afp.finder).type = kNewType;
    if (record.kind == tidewell::VolumeKindMac) record.mac.attributes = 1;
    return tidewell::WriteFinderInfo(paths, &record) != 0;
}

// M:\plain has no Mac information, M:\raw has it without a place for the attributes: it is laid out anew.
void makeFiles(TestPc& pc) {
    for (const char* const path : {"M:\\file", "N:\\file"})
        writeMacFile(path, {.data = bytesOf("data"), .resource = patternOf(3000)});
    pc.folder().write("M/plain", "data");
    pc.folder().write("M/raw", "data");
    pc.folder().write("M/._raw",
                      appleDoubleHeader({{9, 50, 32}, {2, 82, 4}}) + std::string(32, 'i') + "fork");
    pc.flushAll();
}

}  // namespace

TEST_CASE("What was not flushed is gone with the power, and every handle") {
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        TestPc pc;
        pc.folder().write("F/old", "old");
        pc.folder().write("F/gone", "gone");
        writeFile("F:\\new", bytesOf("new"));
        writeFile("N:\\owner", {});
        const HANDLE file = CreateFileA("F:\\old", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        const HANDLE stream = CreateFileA("N:\\owner:s", GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        DWORD written = 0;
        REQUIRE(WriteFile(file, "1", 1, &written, nullptr));
        for (const HANDLE flushed : {file, stream})
            REQUIRE(FlushFileBuffers(flushed));
        REQUIRE(WriteFile(file, "2345", 4, &written, nullptr));
        REQUIRE(DeleteFileA("F:\\gone"));
        pc.cutPower(cut);
        CHECK(pc.nothingHeld());
        CHECK_FALSE(CloseHandle(file));
        CHECK(readFile("F:\\old") == bytesOf("1ld"));
        CHECK_FALSE(exists("F:\\new"));
        CHECK(exists("F:\\gone") == (cut == PowerCut::losesNames));
        // A stream that was flushed has its file's name.
        CHECK(exists("N:\\owner"));
        CHECK(exists("N:\\owner:s"));
    }
}

TEST_CASE("A volume that flushes no Finder information leaves to the disk whether a name has moved") {
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        MemoryFolder folder("/Volume");
        const auto volume = pc::makeMacVolume(folder.host(), folder.path(), pc::FinderFlush::withDataFork);
        const std::string old = appleDoubleHeader({{9, 38, 32}}) + std::string(32, 'i');
        folder.write("a", "");
        folder.write("._a", old);
        REQUIRE(changeFinderInfo(*volume, "a", "TEXTttxt", 1) == 0);
        const std::string anew = folder.read("._a");
        pc::Opened opened;
        REQUIRE(openFile(*volume, std::string("a") + kFinderFile, openExisting, opened) == 0);
        REQUIRE(opened.file->flush() == 0);
        opened = {};
        folder.memory().losePower(cut);
        CHECK(folder.read("._a") == (cut == PowerCut::keepsNames ? anew : old));
    }
}

TEST_CASE("The power goes at every call of a change: the Finder information is the old or the new") {
    for (const PowerCut cut : {PowerCut::keepsNames, PowerCut::losesNames}) {
        for (const char* const path : {"M:\\file", "M:\\plain", "M:\\raw", "N:\\file"}) {
            bool hit = true;
            for (int n = 1; hit; ++n) {
                TestPc pc;
                makeFiles(pc);
                const MacFile old = readMacFile(path);
                pc.faults().cutPower(n);
                const bool done = changeType(path);
                hit = pc.faults().hit();
                if (hit) CHECK(pc.faults().injected() == ERROR_GEN_FAILURE);
                pc.cutPower(cut);
                CAPTURE(path);
                CAPTURE(n);
                MacFile file = readMacFile(path);
                if (done) CHECK(file.type == kNewType);
                CHECK((done || file.type == kNewType || file.type == old.type));
                file.type = old.type;
                file.attributes = old.attributes;
                CHECK(file == old);
            }
        }
    }
}
