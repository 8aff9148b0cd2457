// MacBinary files, from any bytes.
#include "extraction.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    fuzzExtraction(".bin", bytes, size);
    return 0;
}
