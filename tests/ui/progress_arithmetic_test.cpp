#include "ui/progress_arithmetic.h"

#include "res/resource.h"

#include <doctest/doctest.h>

#include <limits>

using namespace tidewell;

namespace {

constexpr int64_t kSecond = 10'000'000;
constexpr int64_t kLongest = std::numeric_limits<int64_t>::max();
constexpr uint64_t kMost = std::numeric_limits<uint64_t>::max();

struct Shown {
    uint32_t stringId;
    uint32_t number;
};

void checkEstimate(int64_t elapsed, uint64_t done, uint64_t total, Shown expected) {
    CAPTURE(elapsed);
    CAPTURE(done);
    CAPTURE(total);
    const TimeRemaining estimate = EstimateTimeRemaining(elapsed, done, total);
    CHECK(estimate.stringId == expected.stringId);
    if (expected.stringId != 0) CHECK(estimate.number == expected.number);
}

// One of two units is done, so the time that is left is the time that has passed.
void checkRemaining(int64_t remaining, Shown expected) {
    checkEstimate(remaining, 1, 2, expected);
}

constexpr Shown seconds(uint32_t number) {
    return {IDS_SECONDS_REMAINING, number};
}
constexpr Shown minutes(uint32_t number) {
    return {IDS_MINUTES_REMAINING, number};
}
constexpr Shown kNothing = {0, 0};

}  // namespace

TEST_CASE("The bar's shift brings any total into 16 bits") {
    struct {
        uint64_t total;
        int shift;
    } const cases[] = {
        {0, 0},
        {65535, 0},
        {65536, 16},
        {0xFFFF'FFFF, 16},
        {0x1'0000'0000, 32},
        {0xFFFF'FFFF'FFFF, 32},
        {0x1'0000'0000'0000, 48},
        {kMost, 48},
    };
    for (const auto& test : cases) {
        CAPTURE(test.total);
        CHECK(ProgressShift(test.total) == test.shift);
    }
}

TEST_CASE("Up to a minute, the time remaining is rounded up to five seconds") {
    checkRemaining(kSecond - 1, kNothing);
    checkRemaining(kSecond, seconds(5));
    checkRemaining(5 * kSecond, seconds(5));
    checkRemaining(6 * kSecond - 1, seconds(5));
    checkRemaining(6 * kSecond, seconds(10));
    checkRemaining(43 * kSecond, seconds(45));
    checkRemaining(60 * kSecond, seconds(60));
}

TEST_CASE("Above a minute, the time remaining is rounded up to minutes, two at least") {
    checkRemaining(60 * kSecond + 1, minutes(2));
    checkRemaining(61 * kSecond, minutes(2));
    checkRemaining(120 * kSecond, minutes(2));
    checkRemaining(121 * kSecond - 1, minutes(2));
    checkRemaining(121 * kSecond, minutes(3));
    checkRemaining(150 * kSecond, minutes(3));
    checkRemaining(24 * 3600 * kSecond, minutes(24 * 60));
}

TEST_CASE("The time of a unit is truncated before it is multiplied") {
    // 1.5 units of time each: as if each took one.
    checkEstimate(15 * kSecond, 10 * kSecond, 30 * kSecond, seconds(20));
    // Each takes less than the clock can tell.
    checkEstimate(10 * kSecond - 1, 10 * kSecond, 1000 * kSecond, kNothing);
}

TEST_CASE("No time remaining without a rate or without work") {
    checkEstimate(100 * kSecond, 0, 1000, kNothing);
    checkEstimate(100 * kSecond, 1000, 1000, kNothing);
    checkEstimate(100 * kSecond, 1001, 1000, kNothing);
    checkEstimate(0, 1, 1000, kNothing);
    // The clock was set back.
    checkEstimate(-100 * kSecond, 1, 1000, kNothing);
    checkEstimate(std::numeric_limits<int64_t>::min(), kMost - 1, kMost, kNothing);
}

TEST_CASE("A time remaining beyond all bounds stays a large number") {
    checkEstimate(kLongest, 1, kMost, minutes(0x7FFF'FFFF));
    checkEstimate(kLongest, 1, 2, minutes(0x7FFF'FFFF));
    checkEstimate(kLongest / 1000, 1, 1002, minutes(0x7FFF'FFFF));
    checkEstimate(2, uint64_t{1} << 63, kMost, kNothing);
}
