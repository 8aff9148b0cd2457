#include "support/real_file.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

RealFile::RealFile(const char* name) : path_(std::filesystem::absolute(name).string()) {
    DeleteFileA(path());
}

RealFile::RealFile(const char* name, const std::string& bytes) : RealFile(name) {
    std::ofstream file(path_, std::ios::binary);
    file << bytes;
    file.close();
    REQUIRE_MESSAGE(!file.fail(), path_);
}

RealFile::~RealFile() {
    // Not every system takes the streams with the file.
    for (const char* const part : {":AFP_Resource", ":AFP_AfpInfo", ""})
        DeleteFileA((path_ + part).c_str());
}

std::string RealFile::bytes() const {
    std::ifstream file(path_, std::ios::binary);
    REQUIRE_MESSAGE(file.is_open(), path_);
    return std::string(std::istreambuf_iterator<char>(file), {});
}
