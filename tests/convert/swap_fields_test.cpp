#include "convert/swap_fields.h"

#include <doctest/doctest.h>

#include <cstring>

TEST_CASE("SwapFields turns over numbers and copies the rest") {
    const uint8_t widths[] = {1, 2, 3, 4, 8, 0};
    uint8_t record[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
    const uint8_t expected[] = {0, 2, 1, 3, 4, 5, 9, 8, 7, 6, 10, 11, 12, 13, 14, 15, 16, 17, 0xEE};
    uint8_t swapped[19];
    swapped[18] = 0xEE;
    tidewell::SwapFields(record, swapped, widths);
    CHECK(std::memcmp(swapped, expected, sizeof expected) == 0);
    tidewell::SwapFields(record, record, widths);
    CHECK(std::memcmp(record, expected, sizeof record) == 0);
}
