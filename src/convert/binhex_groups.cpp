#include "convert/binhex_groups.h"

#include "base/processor.h"
#include "convert/binhex_alphabet.h"

#include <bit>
#include <cstddef>
#include <cstring>

#if TIDEWELL_VECTORS
#include <immintrin.h>
#endif

namespace tidewell {

namespace {

constexpr uint32_t kNoGroup = 0x80000000;

// The bits of a group's n-th character at their place in its three bytes; kNoGroup for one that is none of
// the alphabet.
struct Places {
    uint32_t of[4][256];

    constexpr Places() : of() {
        for (unsigned n = 0; n < 4; ++n) {
            for (unsigned c = 0; c < 256; ++c) {
                const uint32_t meaning = kBinHexMeanings.of[c];
                of[n][c] = meaning < 64 ? meaning << (18 - 6 * n) : kNoGroup;
            }
        }
    }
};

constexpr Places kPlaces;

// The three bytes of four characters, or with kNoGroup.
uint32_t groupOf(uint32_t characters) {
    return kPlaces.of[0][characters & 0xFF] | kPlaces.of[1][characters >> 8 & 0xFF] |
           kPlaces.of[2][characters >> 16 & 0xFF] | kPlaces.of[3][characters >> 24];
}

// Four bytes are written for three: the fourth lies where characters have been read already.
const uint8_t* decodeByTable(const uint8_t* next, const uint8_t* end, uint8_t*& out) {
    static_assert(std::endian::native == std::endian::little);
    while (end - next >= 4) {
        uint32_t characters = 0;
        std::memcpy(&characters, next, sizeof characters);
        const uint32_t group = groupOf(characters);
        if ((group & kNoGroup) != 0) break;
        const uint32_t bytes = __builtin_bswap32(group) >> 8;
        std::memcpy(out, &bytes, sizeof bytes);
        out += 3;
        next += 4;
    }
    return next;
}

#if TIDEWELL_VECTORS

constexpr ptrdiff_t kVector = 16;  // characters

// The alphabet by eighths of the 128 characters of ASCII, each of which has its values in a row: which of its
// characters there are, a bit for each, and what makes their codes their values.
struct Eighths {
    alignas(kVector) uint8_t present[16];
    alignas(kVector) uint8_t offset[16];

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

TIDEWELL_VECTOR_FUNCTION __m128i eighth(const uint8_t* table, __m128i characters) {
    const __m128i index = _mm_and_si128(_mm_srli_epi16(characters, 3), _mm_set1_epi8(0x0F));
    return _mm_shuffle_epi8(_mm_load_si128(reinterpret_cast<const __m128i*>(table)), index);
}

// A bit for each character that is none of the alphabet.
TIDEWELL_VECTOR_FUNCTION unsigned strangers(__m128i characters) {
    const __m128i bits = _mm_set1_epi64x(static_cast<long long>(0x8040201008040201));
    // A shuffle gives 0 for an index from 128 on.
    const __m128i index = _mm_and_si128(characters, _mm_set1_epi8(static_cast<char>(0x87)));
    const __m128i present =
        _mm_and_si128(eighth(kEighths.present, characters), _mm_shuffle_epi8(bits, index));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(present, _mm_setzero_si128())));
}

// The twelve bytes of sixteen characters, and four zeros.
TIDEWELL_VECTOR_FUNCTION __m128i groupsOf(__m128i characters) {
    const __m128i values = _mm_add_epi8(characters, eighth(kEighths.offset, characters));
    const __m128i pairs = _mm_maddubs_epi16(values, _mm_set1_epi16(0x0140));
    const __m128i groups = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00011000));
    return _mm_shuffle_epi8(groups, _mm_set_epi8(-1, -1, -1, -1, 12, 13, 14, 8, 9, 10, 4, 5, 6, 0, 1, 2));
}

TIDEWELL_VECTOR_FUNCTION __m128i loadVector(const uint8_t* characters) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(characters));
}

TIDEWELL_VECTOR_FUNCTION void storeGroups(uint8_t* out, __m128i characters) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), groupsOf(characters));
}

TIDEWELL_VECTOR_FUNCTION __m128i places() {
    return _mm_set_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
}

// All bits for each place from `place` on.
TIDEWELL_VECTOR_FUNCTION __m128i placesFrom(int place) {
    return _mm_cmpgt_epi8(places(), _mm_set1_epi8(static_cast<char>(place - 1)));
}

// Those after the character at `place` move up into its place.
TIDEWELL_VECTOR_FUNCTION __m128i without(__m128i characters, int place) {
    return _mm_shuffle_epi8(characters, _mm_sub_epi8(places(), placesFrom(place)));
}

// Lines of 64 characters, as every encoder makes them: there is a blank at `place` and after each 64
// characters more. They are taken whole, without a look at where each ends. What is written has all been read
// before.
TIDEWELL_VECTOR_FUNCTION const uint8_t* decodeLines(const uint8_t* next, const uint8_t* end, uint8_t*& out,
                                                    int place) {
    constexpr ptrdiff_t kLine = 4 * kVector;
    const __m128i behind = placesFrom(place);
    while (end - next > kLine && kBinHexMeanings.of[next[place]] == kBinHexBlank) {
        const __m128i first = _mm_or_si128(_mm_andnot_si128(behind, loadVector(next)),
                                           _mm_and_si128(behind, loadVector(next + 1)));
        const __m128i second = loadVector(next + 1 + kVector);
        const __m128i third = loadVector(next + 1 + 2 * kVector);
        const __m128i fourth = loadVector(next + 1 + 3 * kVector);
        if ((strangers(first) | strangers(second) | strangers(third) | strangers(fourth)) != 0) break;
        storeGroups(out, first);
        storeGroups(out + 12, second);
        storeGroups(out + 24, third);
        storeGroups(out + 36, fourth);
        out += kLine / 4 * 3;
        next += kLine + 1;
    }
    return next;
}

// Sixteen bytes are written at a time, of which those after the decoded ones must have been read already.
// Stops before four characters that are no group, or whose decoding would write too far.
TIDEWELL_VECTOR_FUNCTION const uint8_t* decodeByVector(const uint8_t* next, const uint8_t* end,
                                                       uint8_t*& out) {
    while (end - next >= kVector && next - out >= kVector) {
        __m128i characters = loadVector(next);
        const unsigned strange = strangers(characters);
        ptrdiff_t groups = 4;
        if (strange != 0) {
            const int place = std::countr_zero(strange);
            const uint8_t* const behindLines = decodeLines(next, end, out, place);
            if (behindLines != next) {
                next = behindLines;
                continue;
            }
            // With a single blank out of the way there are three whole groups.
            const bool alone = (strange & (strange - 1) & 0x1FFF) == 0;
            groups = 3;
            if (place < 12) {
                if (!alone || kBinHexMeanings.of[next[place]] != kBinHexBlank) break;
                characters = without(characters, place);
                ++next;
            }
        }
        storeGroups(out, characters);
        out += 3 * groups;
        next += 4 * groups;
    }
    return next;
}

#endif

}  // namespace

const uint8_t* DecodeBinHexGroups(const uint8_t* next, const uint8_t* end, uint8_t*& out) {
#if TIDEWELL_VECTORS
    if (HasVectorInstructions()) next = decodeByVector(next, end, out);
#endif
    return decodeByTable(next, end, out);
}

}  // namespace tidewell
