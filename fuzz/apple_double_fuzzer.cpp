// AppleDouble files, from any bytes: a file with such Mac information is packed, gets other Finder
// information and another resource fork.
#include "convert/create_macbinary.h"
#include "fuzz_pc.h"
#include "macfile/finder_info.h"
#include "macfile/fork_paths.h"

#include <windows.h>

#include <cstring>

namespace {

using tidewell::FinderInfoRecord;

const std::string kNames[] = {"._file", "file"};

void checkNames(const FuzzPc& pc) {
    const std::vector<std::string> names = pc.names('M');
    mustBe(names.size() == 2 && names[0] == kNames[0] && names[1] == kNames[1], "other files were made");
    mustBe(pc.nothingHeld(), "handles or memory are still held");
}

// Empty when there is none; told apart from an empty fork by `there`.
std::string resourceFork(const char* path, bool& there) {
    const HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    there = file != INVALID_HANDLE_VALUE;
    if (!there) return "";
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD got = 0;
    mustBe(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr) != 0, "no read");
    mustBe(got == bytes.size(), "a resource fork is shorter than it says");
    CloseHandle(file);
    return bytes;
}

void pack(FuzzPc& pc, const std::string& fork, bool readable) {
    const DWORD error = CreateMacBinaryFile(nullptr, "M:\\file", "S:\\out.bin", nullptr);
    const bool packed = pc.names('S').size() == 1;
    mustBe(packed == (error == 0 && readable), "a packing left what it should not, or nothing");
    if (!packed) return;
    const std::string out = pc.read('S', "out.bin");
    mustBe(out.size() >= 128 + 128 + fork.size() && out.find(fork, 256) == 256, "the resource fork is lost");
}

void changeFinderInfo(FuzzPc& pc, const char* infoPath, const char* forkPath) {
    bool before = false;
    const std::string fork = resourceFork(forkPath, before);
    const std::string bytes = pc.read('M', kNames[0]);
    FinderInfoRecord record;
    if (!tidewell::ReadFinderInfo(infoPath, &record)) return;
    record.mac.finder.type = record.mac.finder.type ^ 0x01010101;
    if (!tidewell::WriteFinderInfo(infoPath, &record)) {
        mustBe(pc.read('M', kNames[0]) == bytes, "a failed change changed something");
        return;
    }
    FinderInfoRecord again;
    mustBe(tidewell::ReadFinderInfo(infoPath, &again) != 0, "what was written cannot be read");
    mustBe(std::memcmp(&record.mac, &again.mac, sizeof record.mac) == 0, "another record comes back");
    bool after = false;
    mustBe(resourceFork(forkPath, after) == fork && before == after, "the resource fork is another");
}

void replaceResourceFork(const char* forkPath) {
    const HANDLE file = CreateFileA(forkPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    mustBe(WriteFile(file, "fork", 4, &written, nullptr) != 0 && written == 4, "a fork cannot be written");
    CloseHandle(file);
    bool there = false;
    mustBe(resourceFork(forkPath, there) == "fork" && there, "another fork comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static FuzzPc pc;
    pc.clear();
    pc.setCodePage(pc::kCodePageUtf8);
    pc.write('M', kNames[0], textOf(bytes, size));
    pc.write('M', kNames[1], "data");
    const std::string path = "M:\\file\\";
    const std::string forkPath = path + tidewell::kResourceForkName;
    const std::string infoPath = path + tidewell::kFinderInfoName;

    bool there = false;
    const std::string fork = resourceFork(forkPath.c_str(), there);
    FinderInfoRecord record;
    const bool readable = tidewell::ReadFinderInfo(infoPath.c_str(), &record) != 0;
    pack(pc, fork, readable);
    mustBe(pc.read('M', kNames[0]) == textOf(bytes, size), "packing changed its source");
    checkNames(pc);
    changeFinderInfo(pc, infoPath.c_str(), forkPath.c_str());
    checkNames(pc);
    replaceResourceFork(forkPath.c_str());
    checkNames(pc);
    mustBe(pc.read('M', kNames[1]) == "data", "the data fork was changed");
    return 0;
}
