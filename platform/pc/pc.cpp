#include "pc.h"

#include "letter_case.h"

#include <cctype>
#include <utility>

#include <windows.h>

namespace pc {

namespace {

Pc* currentPc = nullptr;

// Handle values that Windows' own, small multiples of 4, never reach.
constexpr uintptr_t kFirstHandle = 0x5D000000;
constexpr uintptr_t kHandleRange = 0x01000000;

bool forbids(uint32_t share, const OpenMode& mode) {
    return (mode.read && (share & FILE_SHARE_READ) == 0) || (mode.write && (share & FILE_SHARE_WRITE) == 0);
}

}  // namespace

Pc::Pc(Platform platform)
    : platform_(platform), previous_(std::exchange(currentPc, this)), lastHandle_(kFirstHandle) {}

Pc::~Pc() {
    currentPc = previous_;
}

Pc* Pc::current() {
    return currentPc;
}

void Pc::addDrive(char letter, unsigned type, std::unique_ptr<Volume> volume) {
    drives_[letter] = Drive{type, std::move(volume)};
}

Drive* Pc::drive(char letter) {
    const auto found = drives_.find(static_cast<char>(std::toupper(static_cast<unsigned char>(letter))));
    return found == drives_.end() ? nullptr : &found->second;
}

void Pc::addDevice(std::string_view name, std::shared_ptr<Device> device) {
    devices_[upperCase(name)] = std::move(device);
}

std::shared_ptr<Device> Pc::device(std::string_view name) const {
    const auto found = devices_.find(upperCase(name));
    return found == devices_.end() ? nullptr : found->second;
}

uintptr_t Pc::newHandle() {
    return lastHandle_ += 4;
}

bool Pc::isHandle(uintptr_t handle) {
    return handle >= kFirstHandle && handle - kFirstHandle < kHandleRange;
}

Error Pc::checkSharing(const std::string& identity, const OpenMode& mode) const {
    if (!mode.read && !mode.write) return 0;
    for (const auto& [handle, open] : openFiles_) {
        if (open.identity != identity || (!open.mode.read && !open.mode.write)) continue;
        if (forbids(open.mode.share, mode) || forbids(mode.share, open.mode)) return ERROR_SHARING_VIOLATION;
    }
    return 0;
}

}  // namespace pc
