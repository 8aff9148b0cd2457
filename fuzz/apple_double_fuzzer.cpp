// AppleDouble files, from any bytes: a file with such Mac information is packed, gets other Finder
// information and another resource fork.
#include "convert/create_macbinary.h"
#include "fuzz_pc.h"
#include "macfile/finder_info.h"

#include <algorithm>
#include <cstring>

namespace {

using tidewell::FinderInfoRecord;

constexpr char kFork[] = "M:\\file\\{4DD19183-ACE2-11CF-BBF2-444553540000}";

Bytes resourceFork() {
    return exists(kFork) ? readFile(kFork) : Bytes();
}

bool readRecord(FinderInfoRecord& record) {
    return tidewell::ReadFinderInfo(ForkPathsOf("M:\\file"), &record) != 0;
}

void pack() {
    FinderInfoRecord record;
    const bool readable = readRecord(record);
    const DWORD error = CreateMacBinaryFile(nullptr, "M:\\file", "S:\\out.bin", nullptr);
    const bool packed = exists("S:\\out.bin");
    mustBe(packed == (error == 0 && readable), "a packing left what it should not, or nothing");
    if (!packed) return;
    const Bytes out = readFile("S:\\out.bin");
    const Bytes fork = resourceFork();
    mustBe(out.size() >= 256 + fork.size() && std::equal(fork.begin(), fork.end(), out.begin() + 256),
           "the resource fork is lost");
}

void changeFinderInfo(const FuzzPc& pc) {
    const Bytes fork = resourceFork();
    const std::string bytes = pc.folder().read("M/._file");
    FinderInfoRecord record, again;
    if (!readRecord(record)) return;
    record.mac.finder.type = record.mac.finder.type ^ 0x01010101;
    if (!tidewell::WriteFinderInfo(ForkPathsOf("M:\\file"), &record)) {
        mustBe(pc.folder().read("M/._file") == bytes, "a failed change changed something");
        return;
    }
    mustBe(readRecord(again), "what was written cannot be read");
    mustBe(std::memcmp(&record.mac, &again.mac, sizeof record.mac) == 0, "another record comes back");
    mustBe(resourceFork() == fork, "the resource fork is another");
}

void replaceResourceFork() {
    const tidewell::OwnedFile fork(CreateFileA(kFork, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    if (!fork) return;
    DWORD written = 0;
    mustBe(WriteFile(fork.get(), "fork", 4, &written, nullptr) != 0 && written == 4,
           "a fork cannot be written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    FuzzPc pc;
    pc.setCodePage(pc::kCodePageUtf8);
    pc.folder().write("M/._file", textOf(bytes, size));
    pc.folder().write("M/file", "data");
    pack();
    mustBe(pc.folder().read("M/._file") == textOf(bytes, size), "packing changed its source");
    changeFinderInfo(pc);
    replaceResourceFork();
    mustBe(pc.folder().names("M") == std::vector<std::string>{"._file", "file"}, "other files were made");
    mustBe(pc.folder().read("M/file") == "data", "the data fork was changed");
    mustBe(pc.nothingHeld(), "handles or memory are still held");
    return 0;
}
