// Over the wide calls only: those of the ANSI names may belong to a PC.
#include "temp_folder.h"

#include "pc/utf8.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

// Taken literally: streams, names with a final period, and names of devices, which are then none.
std::wstring wide(const std::string& path) {
    const std::u16string units = pc::utf16FromUtf8("//?/" + path);
    std::wstring text(units.begin(), units.end());
    std::replace(text.begin(), text.end(), L'/', L'\\');
    return text;
}

std::string narrow(std::wstring_view text) {
    return pc::utf8FromUtf16(std::u16string(text.begin(), text.end()));
}

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(wide(folder + "/*").c_str(), &found);
    for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileW(search, &found)) {
        const std::string name = narrow(found.cFileName);
        if (name != "." && name != "..") names.push_back(name);
    }
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

void removeTree(const std::string& folder) {
    for (const std::string& name : namesIn(folder)) {
        const std::string path = folder + "/" + name;
        SetFileAttributesW(wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
        if (!DeleteFileW(wide(path).c_str())) removeTree(path);
    }
    RemoveDirectoryW(wide(folder).c_str());
}

}  // namespace

TempFolder::TempFolder() {
    wchar_t base[MAX_PATH];
    if (GetTempPathW(MAX_PATH, base) == 0) throw std::runtime_error("no folder for tests");
    static unsigned count = 0;
    for (;;) {
        path_ = narrow(base) + "tidewell-test-" + std::to_string(GetCurrentProcessId()) + "-" +
                std::to_string(count++);
        std::replace(path_.begin(), path_.end(), '\\', '/');
        if (CreateDirectoryW(wide(path_).c_str(), nullptr)) return;
        if (GetLastError() != ERROR_ALREADY_EXISTS) throw std::runtime_error("no folder for tests");
    }
}

TempFolder::~TempFolder() {
    removeTree(path_);
}

void TempFolder::makeFolder(std::string_view name) const {
    for (size_t end = name.find('/'); end != std::string_view::npos; end = name.find('/', end + 1))
        CreateDirectoryW(wide(path(name.substr(0, end))).c_str(), nullptr);
    CreateDirectoryW(wide(path(name)).c_str(), nullptr);
}

void TempFolder::write(std::string_view name, std::string_view bytes) const {
    std::ofstream file(std::filesystem::path(wide(path(name))), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + path(name));
}

std::string TempFolder::read(std::string_view name) const {
    std::ifstream file(std::filesystem::path(wide(path(name))), std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path(name));
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool TempFolder::has(std::string_view name) const {
    return GetFileAttributesW(wide(path(name)).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void TempFolder::remove(std::string_view name) const {
    DeleteFileW(wide(path(name)).c_str());
}

std::vector<std::string> TempFolder::names(std::string_view folder) const {
    return namesIn(folder.empty() ? path_ : path(folder));
}
