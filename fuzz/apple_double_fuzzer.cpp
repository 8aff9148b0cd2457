// AppleDouble files, from any bytes: a file with such Mac information is packed, gets other Finder
// information or another resource fork. The bytes choose which, and for one input of eight it is one after
// the other.
#include "convert/create_macbinary.h"
#include "fuzz_pc.h"
#include "macfile/finder_info.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <optional>

namespace {

using tidewell::FinderInfoRecord;

constexpr char kFork[] = "M:\\file\\{4DD19183-ACE2-11CF-BBF2-444553540000}";

void checkNames(const FuzzPc& pc) {
    mustBe(pc.folder().names("M") == std::vector<std::string>{"._file", "file"}, "other files were made");
    mustBe(pc.nothingHeld(), "handles or memory are still held");
}

std::optional<Bytes> resourceFork() {
    return exists(kFork) ? std::optional(readFile(kFork)) : std::nullopt;
}

void pack(bool readable) {
    const DWORD error = CreateMacBinaryFile(nullptr, "M:\\file", "S:\\out.bin", nullptr);
    const bool packed = exists("S:\\out.bin");
    mustBe(packed == (error == 0 && readable), "a packing left what it should not, or nothing");
    if (!packed) return;
    const Bytes out = readFile("S:\\out.bin");
    const Bytes fork = resourceFork().value_or(Bytes());
    mustBe(out.size() >= 256 + fork.size() && std::equal(fork.begin(), fork.end(), out.begin() + 256),
           "the resource fork is lost");
}

void changeFinderInfo(const FuzzPc& pc) {
    const std::optional<Bytes> fork = resourceFork();
    const std::string bytes = pc.folder().read("M/._file");
    FinderInfoRecord record, again;
    if (!tidewell::ReadFinderInfo(ForkPathsOf("M:\\file"), &record)) return;
    record.mac.finder.type = record.mac.finder.type ^ 0x01010101;
    if (!tidewell::WriteFinderInfo(ForkPathsOf("M:\\file"), &record)) {
        mustBe(pc.folder().read("M/._file") == bytes, "a failed change changed something");
        return;
    }
    mustBe(tidewell::ReadFinderInfo(ForkPathsOf("M:\\file"), &again) != 0, "what was written cannot be read");
    mustBe(std::memcmp(&record.mac, &again.mac, sizeof record.mac) == 0, "another record comes back");
    mustBe(resourceFork() == fork, "the resource fork is another");
}

void replaceResourceFork() {
    const HANDLE file = CreateFileA(kFork, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    mustBe(WriteFile(file, "fork", 4, &written, nullptr) != 0 && written == 4, "a fork cannot be written");
    CloseHandle(file);
    mustBe(resourceFork() == bytesOf("fork"), "another fork comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    FuzzPc pc;
    pc.setCodePage(pc::kCodePageUtf8);
    pc.folder().write("M/._file", textOf(bytes, size));
    pc.folder().write("M/file", "data");
    const size_t choice = std::hash<std::string_view>()(textOf(bytes, size));
    const bool all = choice % 8 == 0;
    if (all || choice % 3 == 0) {
        FinderInfoRecord record;
        pack(tidewell::ReadFinderInfo(ForkPathsOf("M:\\file"), &record) != 0);
        mustBe(pc.folder().read("M/._file") == textOf(bytes, size), "packing changed its source");
        checkNames(pc);
    }
    if (all || choice % 3 == 1) {
        changeFinderInfo(pc);
        checkNames(pc);
    }
    if (all || choice % 3 == 2) {
        replaceResourceFork();
        checkNames(pc);
    }
    mustBe(pc.folder().read("M/file") == "data", "the data fork was changed");
    return 0;
}
