#include "pc_path.h"

#include "kernel.h"

#include <cctype>
#include <cstring>
#include <string_view>

namespace kernel {

namespace {

constexpr std::string_view kDevicePrefix = "\\\\.\\";

bool isDevice(std::string_view path) {
    return path.starts_with(kDevicePrefix) || path.starts_with("//./") || path.starts_with("\\\\?\\");
}

bool hasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

}  // namespace

bool ownsPath(LPCSTR path) {
    if (path == nullptr) return false;
    if (isDevice(path)) return true;
    pc::Pc* const pc = pc::Pc::current();
    return pc != nullptr && hasDrive(path) && pc->drive(path[0]) != nullptr;
}

std::shared_ptr<pc::Device> findDevice(LPCSTR path) {
    const pc::Pc* const pc = pc::Pc::current();
    if (path == nullptr || pc == nullptr) return nullptr;
    std::string_view name = path;
    if (!name.starts_with(kDevicePrefix)) return nullptr;
    name.remove_prefix(kDevicePrefix.size());
    return pc->device(name);
}

pc::Error findPath(LPCSTR path, PcPath& found) {
    pc::Pc* const pc = pc::Pc::current();
    if (path == nullptr || pc == nullptr) return ERROR_PATH_NOT_FOUND;
    if (isDevice(path)) return ERROR_FILE_NOT_FOUND;
    if (std::strlen(path) + 1 > pc->pathLimit()) return ERROR_FILENAME_EXCED_RANGE;
    pc::Drive* const drive = hasDrive(path) ? pc->drive(path[0]) : nullptr;
    if (drive == nullptr) return ERROR_PATH_NOT_FOUND;
    if (drive->volume == nullptr) return ERROR_NOT_READY;

    const char* inside = path + 2;
    if (*inside == '\\') ++inside;
    std::optional<std::string> utf8 = pc::utf8FromAnsi(pc->codePage(), inside);
    if (!utf8) return ERROR_INVALID_NAME;
    found.volume = drive->volume.get();
    found.letter = path[0];
    found.inside = std::move(*utf8);
    return 0;
}

}  // namespace kernel
