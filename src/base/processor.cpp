#include "base/processor.h"

#if TIDEWELL_VECTORS

#include <atomic>

namespace tidewell {

namespace {

enum class Vectors { Unknown, Missing, Present };

// Asked once: under a virtual machine the answer takes long. Two threads that ask at once get the same.
std::atomic<Vectors> known = Vectors::Unknown;

Vectors ask() {
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("pclmul") ? Vectors::Present
                                                                              : Vectors::Missing;
}

}  // namespace

bool HasVectorInstructions() {
    if (known.load(std::memory_order_relaxed) == Vectors::Unknown)
        known.store(ask(), std::memory_order_relaxed);
    return known.load(std::memory_order_relaxed) == Vectors::Present;
}

}  // namespace tidewell

#endif
