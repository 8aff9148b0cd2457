#include "convert/macbinary_crc.h"

#include "convert/crc_fold.h"

#include <bit>
#include <cstring>

namespace tidewell {

namespace {

// Bytes taken in one step.
constexpr size_t kStep = 16;

// remainder[n][b] is the CRC of the byte b followed by n zero bytes: since the CRC is linear, that of 16
// bytes is the sum of 16 entries, which do not wait for each other.
struct Remainders {
    uint16_t of[kStep][256];

    constexpr Remainders() : of() {
        for (unsigned byte = 0; byte < 256; ++byte) {
            unsigned crc = byte << 8;
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc & 0x8000) != 0 ? crc << 1 ^ 0x1021 : crc << 1;
            of[0][byte] = static_cast<uint16_t>(crc);
        }
        for (size_t n = 1; n < kStep; ++n) {
            for (unsigned byte = 0; byte < 256; ++byte) {
                const unsigned before = of[n - 1][byte];
                of[n][byte] = static_cast<uint16_t>(before << 8 ^ of[0][before >> 8]);
            }
        }
    }
};

constexpr Remainders kRemainder;

static_assert(kFoldRemainder == kStep);

// Loaded whole: to load the bytes one by one would take as long as looking them up.
static_assert(std::endian::native == std::endian::little);
uint64_t load64(const uint8_t* bytes) {
    uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

// Spelt out, since a loop of eight small steps is not always unrolled.
[[gnu::always_inline]] inline unsigned lookUp(uint64_t bytes, const uint16_t (*first)[256]) {
    return first[0][bytes & 0xFF] ^ first[-1][bytes >> 8 & 0xFF] ^ first[-2][bytes >> 16 & 0xFF] ^
           first[-3][bytes >> 24 & 0xFF] ^ first[-4][bytes >> 32 & 0xFF] ^ first[-5][bytes >> 40 & 0xFF] ^
           first[-6][bytes >> 48 & 0xFF] ^ first[-7][bytes >> 56];
}

unsigned crcOfStep(unsigned crc, const uint8_t* bytes) {
    const uint64_t start = load64(bytes) ^ (crc >> 8 | (crc & 0xFF) << 8);
    return lookUp(start, &kRemainder.of[kStep - 1]) ^ lookUp(load64(bytes + 8), &kRemainder.of[kStep - 9]);
}

}  // namespace

uint16_t ContinueCrc(uint16_t crc, const void* bytes, size_t count) {
    const auto* next = static_cast<const uint8_t*>(bytes);
    unsigned value = crc;
    uint8_t remainder[kFoldRemainder];
    if (const size_t taken = FoldCrc(crc, next, count, remainder)) {
        value = crcOfStep(0, remainder);
        next += taken;
        count -= taken;
    }
    for (; count >= kStep; count -= kStep, next += kStep)
        value = crcOfStep(value, next);
    for (; count > 0; --count, ++next)
        value = (value << 8 & 0xFFFF) ^ kRemainder.of[0][value >> 8 ^ *next];
    return static_cast<uint16_t>(value);
}

uint16_t MacBinaryCrc(const void* bytes, size_t count) {
    return ContinueCrc(0, bytes, count);
}

}  // namespace tidewell
