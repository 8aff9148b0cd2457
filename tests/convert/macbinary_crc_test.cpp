#include "convert/macbinary_crc.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

namespace {

uint16_t crcBitByBit(const Bytes& bytes) {
    unsigned crc = 0;
    for (const uint8_t byte : bytes) {
        for (int bit = 7; bit >= 0; --bit) {
            const bool differs = (crc >> 15 & 1) != (byte >> bit & 1u);
            crc = (crc << 1 & 0xFFFF) ^ (differs ? 0x1021 : 0);
        }
    }
    return static_cast<uint16_t>(crc);
}

}  // namespace

TEST_CASE("The CRC of MacBinary") {
    const Bytes check = bytesOf("123456789");
    CHECK(tidewell::MacBinaryCrc(check.data(), check.size()) == 0x31C3);
    const Bytes zeros(124);
    CHECK(tidewell::MacBinaryCrc(zeros.data(), zeros.size()) == 0);
    constexpr size_t kSizes[] = {0, 1, 2, 15, 16, 17, 31, 32, 124, 1000, 8191, 8192, 30000};
    for (const size_t size : kSizes) {
        const Bytes bytes = patternOf(size, 7);
        CHECK(tidewell::MacBinaryCrc(bytes.data(), size) == crcBitByBit(bytes));
    }
}
