// The PC that a run of a fuzzer works on, and what must be true of it.
#ifndef TIDEWELL_FUZZ_FUZZ_PC_H
#define TIDEWELL_FUZZ_FUZZ_PC_H

#include "support/test_pc.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// With a drive S: of its own for sources, FAT as F: is.
struct FuzzPc : TestPc {
    FuzzPc() {
        folder().makeFolder("S");
        addDrive('S', pc::makeFatVolume(folder().host(), "/S"));
        journal().setKept(false);
    }
};

// Ends the fuzzer with the message when the condition does not hold.
inline void mustBe(bool condition, const char* message) {
    if (condition) return;
    std::fprintf(stderr, "%s\n", message);
    std::abort();
}

inline std::string_view textOf(const uint8_t* bytes, size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

#endif
