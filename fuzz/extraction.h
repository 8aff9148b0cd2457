// What the fuzzers of both kinds of archive share.
#ifndef TIDEWELL_FUZZ_EXTRACTION_H
#define TIDEWELL_FUZZ_EXTRACTION_H

#include <cstddef>
#include <cstdint>

// Extracts a file of these bytes to a volume of each kind, twice, so that the second replaces the first.
// Whole files or none, the source as it was, nothing held, and the same data fork everywhere.
void fuzzExtraction(const char* extension, const uint8_t* bytes, size_t size);

#endif
