// Vectors of bytes, for functions marked TIDEWELL_VECTOR_FUNCTION.
#ifndef TIDEWELL_BASE_VECTORS_H
#define TIDEWELL_BASE_VECTORS_H

#include "base/processor.h"

#if TIDEWELL_VECTORS

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

namespace tidewell {

constexpr size_t kVector = 32;  // bytes

TIDEWELL_VECTOR_FUNCTION inline __m256i LoadVector(const uint8_t* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

TIDEWELL_VECTOR_FUNCTION inline void StoreVector(uint8_t* to, __m256i bytes) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), bytes);
}

}  // namespace tidewell

#endif

#endif
