#include "pc_path.h"

#include "pc/names/letter_case.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <vector>

namespace kernel {

namespace {

constexpr const char* kSeparators = "\\/";

std::string_view withoutEnd(std::string_view text, const char* characters) {
    return text.substr(0, text.find_last_not_of(characters) + 1);
}

// The device that a name stands for, with any extension; empty when it is a file's name.
std::string_view deviceIn(std::string_view path) {
    const size_t separator = path.find_last_of("\\/:", path.size() - (path.ends_with(':') ? 2 : 1));
    std::string_view name = separator == path.npos ? path : path.substr(separator + 1);
    name = withoutEnd(name.substr(0, name.find_first_of(".:")), " ");
    for (const std::string_view device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"}) {
        if (pc::equalIgnoringCase(name, device)) return name;
    }
    const bool port =
        pc::equalIgnoringCase(name.substr(0, 3), "COM") || pc::equalIgnoringCase(name.substr(0, 3), "LPT");
    return port && name.size() == 4 && name[3] >= '1' && name[3] <= '9' ? name : std::string_view();
}

// What follows the root, from its separator on. Windows drops all periods and blanks at the end of a path,
// but one period at the end of a folder's name.
std::string collapsed(std::string_view inside) {
    std::vector<std::string_view> components;
    bool ended = false;
    for (size_t start = 0; start < inside.size();) {
        const size_t end = std::min(inside.find_first_of(kSeparators, start), inside.size());
        std::string_view component = inside.substr(start, end - start);
        start = end + 1;
        ended = end < inside.size();
        if (component == "..") {
            if (!components.empty()) components.pop_back();
        } else if (!component.empty() && component != ".") {
            const bool period = ended && component.ends_with('.');
            component = ended ? component.substr(0, component.size() - (period ? 1 : 0))
                              : withoutEnd(component, " .");
            ended = ended || component.empty();
            if (!component.empty()) components.push_back(component);
        }
    }
    std::string path;
    for (const std::string_view component : components)
        path.append("\\").append(component);
    return path.empty() || ended ? path + '\\' : path;
}

}  // namespace

bool isDevicePath(std::string_view path) {
    return path.size() >= 4 && isSeparator(path[0]) && isSeparator(path[1]) && path[2] == '.' &&
           isSeparator(path[3]);
}

bool isLiteralPath(std::string_view path) {
    return path.starts_with("\\\\?\\");
}

bool hasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

bool isRelative(std::string_view path) {
    if (hasDrive(path)) return path.size() == 2 || !isSeparator(path[2]);
    return path.size() < 2 || !isSeparator(path[0]) || !isSeparator(path[1]);
}

pc::Error fullPathOf(const pc::Pc& pc, std::string_view path, std::string& full) {
    full = path;
    if (path.empty()) return ERROR_INVALID_NAME;
    if (isDevicePath(path) || isLiteralPath(path)) return 0;
    const bool drive = hasDrive(path);
    if (!drive && !isRelative(path)) {
        std::replace(full.begin(), full.end(), '/', '\\');
        return 0;
    }
    if (pc.hasDeviceNames()) {
        const std::string_view device = deviceIn(path);
        if (!device.empty()) {
            full = "\\\\.\\" + std::string(device);
            return 0;
        }
    }
    const char letter = drive ? path[0] : pc.currentDrive();
    if (letter == '\0') return ERROR_PATH_NOT_FOUND;
    std::string inside(drive ? path.substr(2) : path);
    if (inside.empty() || !isSeparator(inside[0])) {
        const auto folder = pc::utf8FromAnsi(pc.codePage(), pc.currentFolder(letter));
        if (!folder) return ERROR_INVALID_NAME;
        // The folder itself ends in no separator.
        inside = inside.empty() ? *folder : *folder + '\\' + inside;
    }
    full = std::string(1, letter) + ':' + collapsed(inside);
    return 0;
}

}  // namespace kernel
