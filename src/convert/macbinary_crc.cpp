#include "convert/macbinary_crc.h"

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

uint16_t crcOfStep(unsigned crc, const uint8_t* bytes) {
    unsigned sum = kRemainder.of[kStep - 1][bytes[0] ^ crc >> 8];
    sum ^= kRemainder.of[kStep - 2][bytes[1] ^ (crc & 0xFF)];
    for (size_t i = 2; i < kStep; ++i)
        sum ^= kRemainder.of[kStep - 1 - i][bytes[i]];
    return static_cast<uint16_t>(sum);
}

}  // namespace

uint16_t MacBinaryCrc(const void* bytes, size_t count) {
    const auto* next = static_cast<const uint8_t*>(bytes);
    unsigned crc = 0;
    for (; count >= kStep; count -= kStep, next += kStep)
        crc = crcOfStep(crc, next);
    for (; count > 0; --count, ++next)
        crc = (crc << 8 & 0xFFFF) ^ kRemainder.of[0][crc >> 8 ^ *next];
    return static_cast<uint16_t>(crc);
}

}  // namespace tidewell
