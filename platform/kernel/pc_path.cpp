#include "pc_path.h"

#include "pc/names/utf8.h"
#include "kernel.h"

#include <optional>

namespace kernel {

namespace {

constexpr size_t kPrefixLength = 4;  // of "\\.\" and "\\?\"

// An absolute path goes to its volume as it is: no program on the PC tries what a name could mean besides.
pc::Error findUtf8(pc::Pc& pc, std::string path, PcPath& found) {
    const bool literal = isLiteralPath(path);
    if (literal && pc.platform() != pc::Platform::nt) return ERROR_INVALID_NAME;
    if (!literal && isRelative(path)) {
        const pc::Error error = fullPathOf(pc, std::string(path), path);
        if (error != 0) return error == ERROR_INVALID_NAME ? ERROR_PATH_NOT_FOUND : error;
    }
    if (isDevicePath(path)) {
        found.device = pc.device(path.substr(kPrefixLength));
        return found.device != nullptr ? 0 : ERROR_FILE_NOT_FOUND;
    }
    if (!literal && !pc.takesPath(path)) return ERROR_FILENAME_EXCED_RANGE;
    if (literal) path.erase(0, kPrefixLength);
    if (!hasDrive(path) || isRelative(path)) return literal ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    pc::Drive* const drive = pc.drive(path[0]);
    if (drive == nullptr) return ERROR_PATH_NOT_FOUND;
    if (drive->volume == nullptr) return ERROR_NOT_READY;
    found.volume = drive->volume.get();
    found.letter = path[0];
    found.inside = path.substr(3);
    return 0;
}

bool owns(std::string_view path) {
    if (isDevicePath(path) || isLiteralPath(path)) return true;
    pc::Pc* const pc = pc::Pc::current();
    if (pc == nullptr) return false;
    return hasDrive(path) ? pc->drive(path[0]) != nullptr : isRelative(path) && pc->currentDrive() != '\0';
}

}  // namespace

std::u16string unitsOf(LPCWSTR text) {
    std::u16string units;
    while (text != nullptr && *text != 0)
        units += static_cast<char16_t>(*text++);
    return units;
}

bool ownsPath(LPCSTR path) {
    return path != nullptr && owns(path);
}

bool ownsPath(LPCWSTR path) {
    return path != nullptr && owns(pc::bytesFromUtf16(unitsOf(path)));
}

pc::Error findPath(LPCSTR path, PcPath& found) {
    pc::Pc* const pc = pc::Pc::current();
    if (path == nullptr || pc == nullptr) return ERROR_PATH_NOT_FOUND;
    std::optional<std::string> utf8 = pc::utf8FromAnsi(pc->codePage(), path);
    return utf8 ? findUtf8(*pc, std::move(*utf8), found) : ERROR_INVALID_NAME;
}

pc::Error findPath(LPCWSTR path, PcPath& found) {
    pc::Pc* const pc = pc::Pc::current();
    if (path == nullptr || pc == nullptr) return ERROR_PATH_NOT_FOUND;
    return findUtf8(*pc, pc::bytesFromUtf16(unitsOf(path)), found);
}

pc::Error findFile(LPCSTR path, PcPath& found) {
    const pc::Error error = findPath(path, found);
    return error == 0 && found.device != nullptr ? ERROR_FILE_NOT_FOUND : error;
}

}  // namespace kernel
