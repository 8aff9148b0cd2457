#include "support/real_mac_file.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

namespace {

void writeReal(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    REQUIRE_MESSAGE(!file.fail(), path);
}

}  // namespace

RealFile::RealFile(const char* name) : path_(std::filesystem::absolute(name).string()) {
    DeleteFileA(path());
}

RealFile::RealFile(const char* name, const std::string& bytes) : RealFile(name) {
    writeReal(path_, bytes);
}

RealFile::~RealFile() {
    DeleteFileA(path());
}

std::string RealFile::bytes() const {
    std::ifstream file(path_, std::ios::binary);
    REQUIRE_MESSAGE(file.is_open(), path_);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

RealMacFile::RealMacFile(const char* name, size_t dataLength, size_t resourceLength)
    : RealFile(name, std::string(dataLength, 'd')),
      resourceFork_(path() + std::string(":AFP_Resource")),
      finderInfo_(path() + std::string(":AFP_AfpInfo")) {
    writeReal(resourceFork_, std::string(resourceLength, 'r'));
    std::string record(60, '\0');
    record.replace(0, 8, std::string("AFP\0\0\0\1\0", 8)).replace(16, 8, "TEXTttxt");
    writeReal(finderInfo_, record);
}

// Where the system keeps streams as files of their own, they do not go with the file.
RealMacFile::~RealMacFile() {
    DeleteFileA(resourceFork_.c_str());
    DeleteFileA(finderInfo_.c_str());
}
