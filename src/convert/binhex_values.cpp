#include "convert/binhex_values.h"

#include "base/vectors.h"
#include "convert/binhex_alphabet.h"

#include <bit>

namespace tidewell {

namespace {

const uint8_t* takeEach(const uint8_t* next, const uint8_t* end, uint8_t*& out) {
    for (; next != end; ++next) {
        const uint8_t meaning = kBinHexMeanings.of[*next];
        if (meaning == kBinHexOther) break;
        *out = meaning;
        out += meaning != kBinHexBlank ? 1 : 0;
    }
    return next;
}

void packEach(const uint8_t* values, const uint8_t* end, uint8_t* out) {
    for (; values != end; values += 4, out += 3) {
        const unsigned group = unsigned{values[0]} << 18 | unsigned{values[1]} << 12 |
                               unsigned{values[2]} << 6 | unsigned{values[3]};
        out[0] = static_cast<uint8_t>(group >> 16);
        out[1] = static_cast<uint8_t>(group >> 8);
        out[2] = static_cast<uint8_t>(group);
    }
}

#if TIDEWELL_VECTORS

static_assert(kBinHexOverrun >= kVector);

// The alphabet by eighths of the 128 characters of ASCII, each of which has its values in a row: which of its
// characters there are, a bit for each, and what makes their codes their values.
struct Eighths {
    alignas(16) uint8_t present[16];
    alignas(16) uint8_t offset[16];

    constexpr Eighths() : present(), offset() {
        for (unsigned c = 0; c < 128; ++c) {
            const uint8_t meaning = kBinHexMeanings.of[c];
            if (meaning >= 64) continue;
            present[c / 8] = static_cast<uint8_t>(present[c / 8] | 1 << c % 8);
            offset[c / 8] = static_cast<uint8_t>(meaning - c);
        }
    }
};

constexpr Eighths kEighths;

TIDEWELL_VECTOR_FUNCTION __m256i eighth(const uint8_t* table, __m256i characters) {
    const __m128i one = _mm_load_si128(reinterpret_cast<const __m128i*>(table));
    const __m256i index = _mm256_and_si256(_mm256_srli_epi16(characters, 3), _mm256_set1_epi8(0x0F));
    return _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(one), index);
}

// A bit for each character that is none of the alphabet.
TIDEWELL_VECTOR_FUNCTION unsigned strangers(__m256i characters) {
    const __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
    // A shuffle gives 0 for an index from 128 on.
    const __m256i index = _mm256_and_si256(characters, _mm256_set1_epi8(static_cast<char>(0x87)));
    const __m256i present =
        _mm256_and_si256(eighth(kEighths.present, characters), _mm256_shuffle_epi8(bits, index));
    return static_cast<unsigned>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(present, _mm256_setzero_si256())));
}

// Takes a vector at a time, or the characters before the first that is none; what is stored behind them is
// stored over. Where the next vector begins hangs on how many were taken, and the processor would wait for
// that; but in lines of 64, which nearly every encoder makes, the blank is the first of a vector, and it need
// not count. Returns where it stopped: a character that is none, or less than a vector before the end.
TIDEWELL_VECTOR_FUNCTION const uint8_t* takeByVector(const uint8_t* next, const uint8_t* end, uint8_t*& out) {
    uint8_t* to = out;
    while (static_cast<size_t>(end - next) >= kVector) {
        const __m256i characters = LoadVector(next);
        StoreVector(to, _mm256_add_epi8(characters, eighth(kEighths.offset, characters)));
        const unsigned strange = strangers(characters);
        if (strange == 0) {
            next += kVector;
            to += kVector;
            continue;
        }
        if ((strange & 1) == 0) {
            const int taken = std::countr_zero(strange);
            next += taken;
            to += taken;
        }
        if (kBinHexMeanings.of[*next] != kBinHexBlank) break;
        ++next;
    }
    out = to;
    return next;
}

// A vector is stored for the values of one: its last quarter is in the place of values already packed.
TIDEWELL_VECTOR_FUNCTION const uint8_t* packByVector(const uint8_t* values, const uint8_t* end,
                                                     uint8_t*& out) {
    const __m256i order =
        _mm256_broadcastsi128_si256(_mm_set_epi8(-1, -1, -1, -1, 12, 13, 14, 8, 9, 10, 4, 5, 6, 0, 1, 2));
    const __m256i together = _mm256_set_epi32(7, 7, 6, 5, 4, 2, 1, 0);
    for (; static_cast<size_t>(end - values) >= kVector; values += kVector, out += kVector / 4 * 3) {
        const __m256i pairs = _mm256_maddubs_epi16(LoadVector(values), _mm256_set1_epi16(0x0140));
        const __m256i groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
        StoreVector(out, _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(groups, order), together));
    }
    return values;
}

#endif

}  // namespace

const uint8_t* TakeBinHexValues(const uint8_t* next, const uint8_t* end, uint8_t*& out) {
#if TIDEWELL_VECTORS
    if (HasVectorInstructions()) {
        next = takeByVector(next, end, out);
        if (static_cast<size_t>(end - next) >= kVector) return next;
    }
#endif
    return takeEach(next, end, out);
}

void PackBinHexValues(uint8_t* values, size_t groups) {
    const uint8_t* next = values;
    const uint8_t* const end = values + 4 * groups;
#if TIDEWELL_VECTORS
    if (HasVectorInstructions()) next = packByVector(next, end, values);
#endif
    packEach(next, end, values);
}

}  // namespace tidewell
