// One extraction in a test: a source of given bytes, and a folder of a given volume.
#ifndef TIDEWELL_TESTS_SUPPORT_EXTRACTION_CASE_H
#define TIDEWELL_TESTS_SUPPORT_EXTRACTION_CASE_H

#include "convert/extract_original.h"
#include "support/test_pc.h"

#include <string>

// Extracts `source`, written as F:\in.bin or F:\in.hqx, into a folder, or into the root of a drive.
tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, const std::string& folder);
tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, char drive);

// `whole` as far as its first `size` bytes.
Bytes cutTo(const Bytes& whole, size_t size);

#endif
