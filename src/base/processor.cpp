#include "base/processor.h"

#if TIDEWELL_VECTORS

#include <cpuid.h>

#include <atomic>

namespace tidewell {

namespace {

enum class Vectors { Unknown, Missing, Present };

// Asked once: under a virtual machine the answer takes long. Two threads that ask at once get the same.
std::atomic<Vectors> known = Vectors::Unknown;

Vectors ask() {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    constexpr unsigned kWanted = bit_SSSE3 | bit_PCLMUL;
    const bool told = __get_cpuid(1, &eax, &ebx, &ecx, &edx) != 0;
    return told && (ecx & kWanted) == kWanted ? Vectors::Present : Vectors::Missing;
}

}  // namespace

bool HasVectorInstructions() {
    if (known.load(std::memory_order_relaxed) == Vectors::Unknown)
        known.store(ask(), std::memory_order_relaxed);
    return known.load(std::memory_order_relaxed) == Vectors::Present;
}

}  // namespace tidewell

#endif
