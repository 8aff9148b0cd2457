#include "ui/size_scale.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>

using namespace tidewell;

TEST_CASE("a size is taken to the unit that leaves at most 1000 of it, GB at most") {
    const std::pair<uint64_t, ScaledSize> rows[] = {
        {1000, {1000, 0, 0}},
        {1001, {0, 97, 1}},
        {1000 * 1024 + 1023, {1000, 99, 1}},
        // Only the last division's remainder counts.
        {1024 * 1024 + 1023, {1, 0, 2}},
        {UINT64_MAX, {(uint64_t{1} << 34) - 1, 99, 3}},
    };
    for (const auto& [bytes, expected] : rows) {
        const ScaledSize size = ScaleSize(bytes);
        CHECK(size.whole == expected.whole);
        CHECK(size.hundredths == expected.hundredths);
        CHECK(size.unit == expected.unit);
    }
}

TEST_CASE("one decimal, a half rounded away from zero") {
    const std::pair<ScaledSize, const char*> rows[] = {
        {{1, 5, 1}, "1.1"},
        {{1000, 99, 1}, "1001.0"},
        {{12, 94, 1}, "12.9"},
        {{UINT64_MAX - 1, 95, 3}, "18446744073709551615.0"},
    };
    for (const auto& [size, expected] : rows) {
        char text[kDigitsCapacity + 2];
        FormatTenths(size, text);
        CHECK(std::string(text) == expected);
    }
}
