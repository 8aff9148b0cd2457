#include "support/test_pc.h"

#include "base/owned.h"
#include "macfile/finder_info.h"
#include "module/module_state.h"
#include "pc/devices/mac_volume_driver.h"
#include "support/scripted_user.h"

#include <cstring>
#include <stdexcept>
#include <tuple>

namespace {

// No test can go on without its files.
void need(bool done, const std::string& path) {
    if (!done) throw std::runtime_error(path + ": error " + std::to_string(GetLastError()));
}

tidewell::OwnedFile openFile(const std::string& path, DWORD access, DWORD disposition) {
    tidewell::OwnedFile file(CreateFileA(path.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
    need(static_cast<bool>(file), path);
    return file;
}

tidewell::FinderFields& finderOf(tidewell::FinderInfoRecord& record) {
    return record.kind == tidewell::VolumeKindMac ? record.mac.finder : record.afp.finder;
}

template <typename Fields>
auto fieldsOf(Fields& of) {
    return std::tie(of.type, of.creator, of.flags, of.vertical, of.horizontal, of.window);
}

}  // namespace

TestPc::TestPc(pc::Platform platform) : Pc(platform) {
    for (const char* const letter : {"F", "N", "M"})
        folder_.makeFolder(letter);
    addDrive('F', pc::makeFatVolume(folder_.host(), "/F"));
    addDrive('N', pc::makeNtfsVolume(folder_.host(), "/N"));
    addDrive('M', pc::makeMacVolume(folder_.host(), "/M"));
    tidewell::InitializeModuleState(GetModuleHandleA(nullptr));
    addDevice(pc::kMacVolumeDriverName, pc::makeMacVolumeDriver(*this));
    journal().clear();
    scriptedUser = {};
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
    const tidewell::OwnedFile file = openFile(path, GENERIC_READ, OPEN_EXISTING);
    Bytes bytes(GetFileSize(file.get(), nullptr));
    DWORD got = 0;
    const BOOL done = ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
    need(done && got == bytes.size(), path);
    return bytes;
}

void writeFile(const std::string& path, const Bytes& bytes) {
    const tidewell::OwnedFile file = openFile(path, GENERIC_WRITE, CREATE_ALWAYS);
    DWORD written = 0;
    const BOOL done =
        WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    need(done && written == bytes.size(), path);
}

void writeMacFile(const std::string& path, const MacFile& file) {
    writeFile(path, file.data);
    const ForkPathsOf paths(path);
    if (paths.finderInfoLength == 0) return;
    if (file.hasResource) writeFile(paths.resourcePath, file.resource);

    tidewell::FinderInfoRecord record;
    if (!tidewell::ReadFinderInfo(paths, &record)) {
        std::memset(static_cast<void*>(&record), 0, sizeof record);
        record.kind = tidewell::VolumeKindNtfs;
    }
    fieldsOf(finderOf(record)) = fieldsOf(file);
    if (record.kind == tidewell::VolumeKindMac) record.mac.attributes = file.attributes;
    need(tidewell::WriteFinderInfo(paths, &record), path);
}

MacFile readMacFile(const std::string& path) {
    MacFile file = keptOn('F', {.data = readFile(path)});
    const ForkPathsOf paths(path);
    file.hasResource = paths.resourceLength != 0 && exists(paths.resourcePath);
    if (file.hasResource) file.resource = readFile(paths.resourcePath);
    tidewell::FinderInfoRecord record;
    if (paths.finderInfoLength == 0 || !tidewell::ReadFinderInfo(paths, &record)) return file;
    fieldsOf(file) = fieldsOf(finderOf(record));
    if (record.kind == tidewell::VolumeKindMac) file.attributes = record.mac.attributes;
    return file;
}

MacFile keptOn(char drive, const MacFile& file) {
    MacFile kept = file;
    if (drive != 'M') kept.attributes = 0;
    if (drive != 'F') return kept;
    return {file.data, {}, false, 0, 0, 0, 0, 0, 0, 0};
}
