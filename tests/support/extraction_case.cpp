#include "support/extraction_case.h"

#include <doctest/doctest.h>

tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, const std::string& folder) {
    const std::string path = std::string("F:\\in") + extension;
    writeFile(path, source);
    DWORD flags = 0;
    const tidewell::ErrorCode error =
        ExtractOriginalMacFile(nullptr, path.c_str(), folder.c_str(), &flags, nullptr);
    CHECK(readFile(path) == source);
    return error;
}

tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, char drive) {
    return extractBytes(source, extension, drive + std::string(":\\"));
}

Bytes cutTo(const Bytes& whole, size_t size) {
    return Bytes(whole.begin(), whole.begin() + static_cast<int>(size));
}
