// What the processor can do beyond what every processor of its kind can.
#ifndef TIDEWELL_BASE_PROCESSOR_H
#define TIDEWELL_BASE_PROCESSOR_H

// Set where vector instructions are used at all. Not in 32-bit programs: the first Windows systems do not
// keep the registers of such instructions for a process.
#if defined(__x86_64__)
#define TIDEWELL_VECTORS 1

namespace tidewell {

// Whether there are vectors of 32 bytes, whose registers the system keeps, and products without carries. The
// compiler's library asks the processor once, when the program or library is loaded.
inline bool HasVectorInstructions() {
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("pclmul");
}

}  // namespace tidewell

// Marks the functions that may run only where there are.
#define TIDEWELL_VECTOR_FUNCTION [[gnu::target("avx2,pclmul")]]

#endif

#endif
