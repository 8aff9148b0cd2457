// BinHex files, from any bytes.
#include "extraction.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    fuzzExtraction(".hqx", bytes, size);
    return 0;
}
