#include "support/real_mac_file.h"

#include <doctest/doctest.h>

#include <vector>

namespace {

void writeReal(const std::string& path, const std::vector<char>& bytes) {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    REQUIRE_MESSAGE(file != INVALID_HANDLE_VALUE, path << ": error " << GetLastError());
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
    REQUIRE(written == bytes.size());
}

std::string fullPath(const char* name) {
    char path[MAX_PATH];
    char* part = nullptr;
    REQUIRE(GetFullPathNameA(name, sizeof path, path, &part) < sizeof path);
    return path;
}

std::vector<char> finderInfo() {
    std::vector<char> record(60);
    const std::string start("AFP\0\0\0\1\0", 8);
    const std::string fields = "TEXTttxt";
    start.copy(record.data(), start.size());
    fields.copy(record.data() + 16, fields.size());
    return record;
}

}  // namespace

RealFile::RealFile(const char* name) : path_(fullPath(name)) {
    DeleteFileA(path_.c_str());
}

RealFile::~RealFile() {
    DeleteFileA(path_.c_str());
}

bool RealFile::exists() const {
    return GetFileAttributesA(path_.c_str()) != INVALID_FILE_ATTRIBUTES;
}

DWORD RealFile::size() const {
    const HANDLE file = CreateFileA(path_.c_str(), 0, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    REQUIRE(file != INVALID_HANDLE_VALUE);
    const DWORD size = GetFileSize(file, nullptr);
    CloseHandle(file);
    return size;
}

RealMacFile::RealMacFile(const char* name, size_t dataLength, size_t resourceLength) : RealFile(name) {
    const std::string file = path();
    writeReal(file, std::vector<char>(dataLength, 'd'));
    writeReal(file + ":AFP_Resource", std::vector<char>(resourceLength, 'r'));
    writeReal(file + ":AFP_AfpInfo", finderInfo());
}

// Where the system keeps streams as files of their own, they do not go with the file.
RealMacFile::~RealMacFile() {
    const std::string file = path();
    DeleteFileA((file + ":AFP_Resource").c_str());
    DeleteFileA((file + ":AFP_AfpInfo").c_str());
}
