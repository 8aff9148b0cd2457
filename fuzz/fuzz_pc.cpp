#include "fuzz_pc.h"

#include "module/module_state.h"
#include "pc/mac_volume_driver.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

constexpr char kDrives[] = {'S', 'F', 'N', 'M'};
constexpr const char* kMemoryFolder = "/dev/shm";

fs::path makeRoot() {
    const fs::path parent =
        fs::is_directory(kMemoryFolder) ? fs::path(kMemoryFolder) : fs::temp_directory_path();
    std::string name = (parent / "tidewell-fuzz-XXXXXX").string();
    mustBe(mkdtemp(name.data()) != nullptr, "no folder for the volumes");
    return name;
}

}  // namespace

void mustBe(bool condition, const char* message) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", message);
    if (pc::Pc* const pc = pc::Pc::current()) std::fprintf(stderr, "%s", pc->journal().text().c_str());
    std::abort();
}

FuzzPc::FuzzPc() : root_(makeRoot()) {
    for (const char drive : kDrives)
        fs::create_directory(root_ / std::string(1, drive));
    addDevice(pc::kMacVolumeDriverName, pc::makeMacVolumeDriver(*this));
    clear();
    tidewell::InitializeModuleState(GetModuleHandleA(nullptr));
}

FuzzPc::~FuzzPc() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

void FuzzPc::clear() {
    for (const char drive : kDrives) {
        for (const std::string& name : names(drive))
            fs::remove_all(hostPath(drive, name));
    }
    addDrive('S', DRIVE_FIXED, pc::makeFatVolume(hostPath('S', "")));
    addDrive('F', DRIVE_FIXED, pc::makeFatVolume(hostPath('F', "")));
    addDrive('N', DRIVE_FIXED, pc::makeNtfsVolume(hostPath('N', "")));
    addDrive('M', DRIVE_FIXED, pc::makeMacVolume(hostPath('M', "")));
    journal().clear();
}

std::string FuzzPc::hostPath(char drive, std::string_view name) const {
    return (root_ / std::string(1, drive)).string() + "/" + std::string(name);
}

void FuzzPc::write(char drive, std::string_view name, std::string_view bytes) const {
    std::ofstream file(hostPath(drive, name), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    mustBe(!file.flush().fail(), "a host file cannot be written");
}

std::string FuzzPc::read(char drive, std::string_view name) const {
    std::ifstream file(hostPath(drive, name), std::ios::binary);
    mustBe(!file.fail(), "a host file cannot be read");
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::string> FuzzPc::names(char drive) const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(hostPath(drive, "")))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}
