#include "convert/macbinary_crc.h"

#include "support/archive_writer.h"

#include <doctest/doctest.h>

TEST_CASE("The CRC of MacBinary") {
    CHECK(tidewell::MacBinaryCrc("123456789", 9) == 0x31C3);
    CHECK(tidewell::MacBinaryCrc(Bytes(124).data(), 124) == 0);
    const Bytes bytes = patternOf(30000, 7);
    for (const size_t size : {0u, 1u, 2u, 15u, 16u, 17u, 31u, 32u, 124u, 1000u, 8191u, 8192u, 30000u})
        CHECK(tidewell::MacBinaryCrc(bytes.data(), size) == crcOf(bytes.data(), size));
}
