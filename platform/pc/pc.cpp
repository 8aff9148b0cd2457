#include "pc/pc.h"

#include "pc/names/letter_case.h"
#include "pc/names/utf8.h"

#include <atomic>
#include <cctype>
#include <utility>

#include <windows.h>

namespace pc {

namespace {

std::atomic<Pc*> currentPc = nullptr;

// Handle values that Windows' own, small multiples of 4, never reach.
constexpr uintptr_t kFirstHandle = 0x5D000000;
constexpr uintptr_t kHandleRange = 0x01000000;

char upperLetter(char letter) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
}

bool forbids(uint32_t share, const OpenMode& mode) {
    return (mode.read && (share & FILE_SHARE_READ) == 0) || (mode.write && (share & FILE_SHARE_WRITE) == 0);
}

}  // namespace

Pc::Pc(Platform platform)
    : platform_(platform), previous_(currentPc.exchange(this)), lastHandle_(kFirstHandle) {}

Pc::~Pc() {
    currentPc = previous_;
}

Pc* Pc::current() {
    return currentPc;
}

void Pc::addDrive(char letter, std::unique_ptr<Volume> volume, DriveType type) {
    drives_[letter] = Drive{std::move(volume), type};
}

Drive* Pc::drive(char letter) {
    const auto found = drives_.find(upperLetter(letter));
    return found == drives_.end() ? nullptr : &found->second;
}

uint32_t Pc::driveLetters() const {
    uint32_t letters = 0;
    for (const auto& [letter, drive] : drives_)
        letters |= uint32_t{1} << (letter - 'A');
    return letters;
}

bool Pc::takesPath(const std::string& utf8) const {
    const size_t limit = pathLimit_ != 0 ? pathLimit_ : MAX_PATH;
    // No form of a text has more units or bytes than UTF-8.
    if (utf8.size() < limit) return true;
    if (pathLimit_ == 0 && platform_ == Platform::nt) return utf16FromBytes(utf8).size() < limit;
    return ansiFromUtf8(codePage_, utf8, /*exact=*/false).value_or(utf8).size() < limit;
}

void Pc::setCurrentFolder(const std::string& path) {
    currentDrive_ = upperLetter(path.at(0));
    std::string folder = path.substr(2);
    if (folder.ends_with('\\')) folder.pop_back();
    currentFolders_[currentDrive_] = std::move(folder);
}

std::string Pc::currentFolder(char letter) const {
    const auto found = currentFolders_.find(upperLetter(letter));
    return found == currentFolders_.end() ? std::string() : found->second;
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

Error Pc::close(uintptr_t handle) {
    const auto found = openFiles_.find(handle);
    const Error error = found->second.file->close();
    forgottenLocks_ += found->second.file->locks();
    openFiles_.erase(found);
    return error;
}

void Pc::cutPower(PowerCut cut) {
    openFiles_.clear();
    for (auto& [letter, drive] : drives_) {
        if (drive.volume != nullptr) drive.volume->losePower(cut);
    }
    faults_.restorePower();
}

}  // namespace pc
