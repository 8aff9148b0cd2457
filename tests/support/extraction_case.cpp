#include "support/extraction_case.h"

#include <doctest/doctest.h>

tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, char drive) {
    const std::string path = std::string("F:\\in") + extension;
    const std::string folder = std::string(1, drive) + ":\\";
    writeFile(path, source);
    DWORD flags = 0;
    const tidewell::ErrorCode error =
        ExtractOriginalMacFile(nullptr, path.c_str(), folder.c_str(), &flags, nullptr);
    CHECK(readFile(path) == source);
    return error;
}

Bytes cutTo(const Bytes& whole, size_t size) {
    return Bytes(whole.begin(), whole.begin() + static_cast<int>(size));
}
