// Over the wide calls only: those of the ANSI names may belong to a PC.
#include "temp_folder.h"

#include "pc/utf8.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
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

std::vector<WIN32_FIND_DATAW> itemsIn(const std::string& folder) {
    std::vector<WIN32_FIND_DATAW> items;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(wide(folder + "/*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return items;
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..") items.push_back(found);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return items;
}

void removeTree(const std::string& folder) {
    for (const WIN32_FIND_DATAW& item : itemsIn(folder)) {
        const std::string path = folder + "/" + narrow(item.cFileName);
        if ((item.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            removeTree(path);
        } else {
            SetFileAttributesW(wide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(wide(path).c_str());
        }
    }
    RemoveDirectoryW(wide(folder).c_str());
}

std::FILE* openOrThrow(const std::string& path, const wchar_t* mode) {
    std::FILE* const file = _wfopen(wide(path).c_str(), mode);
    if (file == nullptr) throw std::runtime_error("cannot open " + path);
    return file;
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
    std::FILE* const file = openOrThrow(path(name), L"wb");
    const size_t written = std::fwrite(bytes.data(), 1, bytes.size(), file);
    if (std::fclose(file) != 0 || written != bytes.size()) throw std::runtime_error("cannot write");
}

std::string TempFolder::read(std::string_view name) const {
    std::FILE* const file = openOrThrow(path(name), L"rb");
    std::string bytes;
    char block[4096];
    while (const size_t got = std::fread(block, 1, sizeof block, file))
        bytes.append(block, got);
    std::fclose(file);
    return bytes;
}

bool TempFolder::has(std::string_view name) const {
    return GetFileAttributesW(wide(path(name)).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void TempFolder::remove(std::string_view name) const {
    DeleteFileW(wide(path(name)).c_str());
}

std::vector<std::string> TempFolder::names(std::string_view folder) const {
    std::vector<std::string> names;
    const std::string path = folder.empty() ? path_ : this->path(folder);
    for (const WIN32_FIND_DATAW& item : itemsIn(path))
        names.push_back(narrow(item.cFileName));
    std::sort(names.begin(), names.end());
    return names;
}
