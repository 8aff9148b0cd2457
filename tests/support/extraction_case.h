// Conversions in tests.
#ifndef TIDEWELL_TESTS_SUPPORT_EXTRACTION_CASE_H
#define TIDEWELL_TESTS_SUPPORT_EXTRACTION_CASE_H

#include "convert/extract_original.h"
#include "support/archive_writer.h"

#include <string>

// Packs a Mac file, whose name ends in "file", or extracts the file "Test" from a source of a format.
struct Conversion {
    std::string source, output;

    bool packs() const { return source.ends_with("file"); }
    bool isBinHex() const { return source.ends_with("hqx"); }
    Bytes archiveOf(const MacFile& file) const;
    void writeSource(const MacFile& file) const;
    tidewell::ErrorCode run(tidewell::ProgressDialog* progress = nullptr, DWORD flags = 0) const;
    // With a progress that has counted 1000 bytes of other files.
    tidewell::ErrorCode runShown(DWORD flags = 0) const;
};

// Extracts `source`, written as F:\in.bin or F:\in.hqx, into a folder, or into the root of a drive, "F:".
tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, const std::string& folder);

// `whole` as far as its first `size` bytes.
Bytes cutTo(const Bytes& whole, size_t size);

#endif
