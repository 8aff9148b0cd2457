#include "support/test_pc.h"

#include "macfile/finder_info.h"
#include "macfile/fork_paths.h"
#include "module/module_state.h"
#include "pc/mac_volume_driver.h"

#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>

TestPc::TestPc(pc::Platform platform) : Pc(platform) {
    for (const char letter : {'F', 'N', 'M'})
        std::filesystem::create_directory(hostFolder(letter));
    addDrive('F', DRIVE_FIXED, pc::makeFatVolume(hostFolder('F')));
    addDrive('N', DRIVE_FIXED, pc::makeNtfsVolume(hostFolder('N')));
    addDrive('M', DRIVE_FIXED, pc::makeMacVolume(hostFolder('M')));
    tidewell::InitializeModuleState(GetModuleHandleA(nullptr));
    addDevice(pc::kMacVolumeDriverName, pc::makeMacVolumeDriver(*this));
    journal().clear();
}

Bytes patternOf(size_t size, unsigned seed) {
    Bytes bytes(size);
    for (size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<uint8_t>((i + seed) * 2654435761u >> 24);
    return bytes;
}

Bytes bytesOf(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

bool exists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

Bytes readFile(const std::string& path) {
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    REQUIRE_MESSAGE(file != INVALID_HANDLE_VALUE, path << ": error " << GetLastError());
    Bytes bytes(GetFileSize(file, nullptr));
    DWORD got = 0;
    REQUIRE(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr));
    CloseHandle(file);
    REQUIRE(got == bytes.size());
    return bytes;
}

void writeFile(const std::string& path, const Bytes& bytes) {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    REQUIRE_MESSAGE(file != INVALID_HANDLE_VALUE, path << ": error " << GetLastError());
    DWORD written = 0;
    const BOOL done = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    REQUIRE_MESSAGE(done, path << ": error " << GetLastError());
    REQUIRE(written == bytes.size());
}

namespace {

void setFields(tidewell::FinderFields& finder, const MacFile& file) {
    finder.type = file.type;
    finder.creator = file.creator;
    finder.flags = file.flags;
    finder.vertical = file.vertical;
    finder.horizontal = file.horizontal;
    finder.window = file.window;
}

}  // namespace

void writeMacFile(const std::string& path, const MacFile& file) {
    writeFile(path, file.data);
    tidewell::ForkPathBuffers paths;
    tidewell::GetForkPaths(path.c_str(), paths);
    REQUIRE(paths.finderInfoLength != 0);
    if (file.hasResource) writeFile(paths.resourcePath, file.resource);

    tidewell::FinderInfoRecord record;
    if (!tidewell::ReadFinderInfo(paths.finderInfoPath, &record)) {
        std::memset(static_cast<void*>(&record), 0, sizeof record);
        record.kind = tidewell::VolumeKindNtfs;
    }
    if (record.kind == tidewell::VolumeKindMac) {
        setFields(record.mac.finder, file);
        record.mac.attributes = file.attributes;
    } else {
        setFields(record.afp.finder, file);
    }
    REQUIRE(tidewell::WriteFinderInfo(paths.finderInfoPath, &record));
}
