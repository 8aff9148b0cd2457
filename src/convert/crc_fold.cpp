#include "convert/crc_fold.h"

#include "base/processor.h"

#if TIDEWELL_VECTORS

#include <immintrin.h>

namespace tidewell {

namespace {

constexpr size_t kBlock = 64;            // bytes taken at a time
constexpr size_t kWorthIt = 2 * kBlock;  // bytes

// The remainder of x to the power of `n`.
constexpr long long powerOfX(unsigned n) {
    unsigned value = 1;
    for (unsigned i = 0; i < n; ++i)
        value = (value & 0x8000) != 0 ? (value << 1 & 0xFFFF) ^ 0x1021 : value << 1;
    return value;
}

// What 16 bytes are multiplied by when `bits` bits follow them: their first half and their second.
template <unsigned bits>
TIDEWELL_VECTOR_FUNCTION __m128i factors() {
    return _mm_set_epi64x(powerOfX(bits + 64), powerOfX(bits));
}

// The first byte of a section is the highest of its polynomial.
TIDEWELL_VECTOR_FUNCTION __m128i reversed(__m128i bytes) {
    return _mm_shuffle_epi8(bytes, _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
}

TIDEWELL_VECTOR_FUNCTION __m128i load(const uint8_t* bytes) {
    return reversed(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
}

// The sum of `next` and of `value` moved ahead by the bits of `factors`, the same remainder in fewer bits.
TIDEWELL_VECTOR_FUNCTION __m128i folded(__m128i value, __m128i factors, __m128i next) {
    return _mm_xor_si128(next, _mm_xor_si128(_mm_clmulepi64_si128(value, factors, 0x11),
                                             _mm_clmulepi64_si128(value, factors, 0x00)));
}

// Takes one block or more.
TIDEWELL_VECTOR_FUNCTION void foldBlocks(uint16_t crc, const uint8_t* bytes, size_t blocks,
                                         uint8_t* remainder) {
    const uint64_t before = uint64_t{crc} << 48;
    __m128i a = _mm_xor_si128(load(bytes), _mm_set_epi64x(static_cast<long long>(before), 0));
    __m128i b = load(bytes + 16);
    __m128i c = load(bytes + 32);
    __m128i d = load(bytes + 48);
    const __m128i block = factors<kBlock * 8>();
    while (--blocks != 0) {
        bytes += kBlock;
        a = folded(a, block, load(bytes));
        b = folded(b, block, load(bytes + 16));
        c = folded(c, block, load(bytes + 32));
        d = folded(d, block, load(bytes + 48));
    }
    const __m128i quarter = factors<kBlock * 8 / 4>();
    a = folded(folded(folded(a, quarter, b), quarter, c), quarter, d);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(remainder), reversed(a));
}

}  // namespace

size_t FoldCrc(uint16_t crc, const uint8_t* bytes, size_t count, uint8_t remainder[kFoldRemainder]) {
    if (count < kWorthIt || !HasVectorInstructions()) return 0;
    const size_t blocks = count / kBlock;
    foldBlocks(crc, bytes, blocks, remainder);
    return blocks * kBlock;
}

}  // namespace tidewell

#else

namespace tidewell {

size_t FoldCrc(uint16_t, const uint8_t*, size_t, uint8_t*) {
    return 0;
}

}  // namespace tidewell

#endif
