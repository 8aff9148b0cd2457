#include "ui/size_scale.h"

#include <doctest/doctest.h>

#include <string>

using namespace tidewell;

TEST_CASE("a size is taken to the unit that leaves at most 1000 of it, GB at most") {
    struct {
        uint64_t bytes;
        uint64_t whole;
        unsigned hundredths;
        unsigned unit;
    } const rows[] = {
        {1000, 1000, 0, 0},
        {1001, 0, 97, 1},
        {1000 * 1024 + 1023, 1000, 99, 1},
        {1001 * 1024, 0, 97, 2},
        // Only the last division's remainder counts.
        {1024 * 1024 + 1023, 1, 0, 2},
        {uint64_t{2000} << 30, 2000, 0, 3},
        {UINT64_MAX, (uint64_t{1} << 34) - 1, 99, 3},
    };
    for (const auto& row : rows) {
        CAPTURE(row.bytes);
        const ScaledSize size = ScaleSize(row.bytes);
        CHECK(size.whole == row.whole);
        CHECK(size.hundredths == row.hundredths);
        CHECK(size.unit == row.unit);
    }
}

TEST_CASE("one decimal, a half rounded away from zero") {
    struct {
        ScaledSize size;
        const char* expected;
    } const rows[] = {
        {{1, 5, 1}, "1.1"},
        {{1, 4, 1}, "1.0"},
        {{1000, 99, 1}, "1001.0"},
        {{12, 94, 1}, "12.9"},
        {{UINT64_MAX - 1, 95, 3}, "18446744073709551615.0"},
    };
    for (const auto& row : rows) {
        char text[kDigitsCapacity + 2];
        FormatTenths(row.size, text);
        CHECK(std::string(text) == row.expected);
    }
}
