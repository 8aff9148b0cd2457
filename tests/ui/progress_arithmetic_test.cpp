#include "ui/progress_arithmetic.h"

#include "res/resource.h"

#include <doctest/doctest.h>

#include <limits>
#include <utility>

using namespace tidewell;

namespace {

constexpr int64_t kSecond = 10'000'000;
constexpr int64_t kLongest = std::numeric_limits<int64_t>::max();
constexpr uint64_t kMost = std::numeric_limits<uint64_t>::max();

}  // namespace

TEST_CASE("The bar's shift brings any total into 16 bits") {
    const std::pair<uint64_t, int> rows[] = {{65535, 0}, {65536, 16}, {0x1'0000'0000, 32}, {kMost, 48}};
    for (const auto& row : rows)
        CHECK_MESSAGE(ProgressShift(row.first) == row.second, row.first);
}

TEST_CASE("The time remaining: up to a minute by five seconds, above it by minutes, two at least") {
    struct {
        int64_t elapsed;
        uint64_t done;
        uint64_t total;
        uint32_t seconds;
        uint32_t minutes = 0;
    } const rows[] = {
        // As much is done as is left.
        {kSecond - 1, 1, 2, 0},
        {kSecond, 1, 2, 5},
        {6 * kSecond - 1, 1, 2, 5},
        {6 * kSecond, 1, 2, 10},
        {60 * kSecond, 1, 2, 60},
        {60 * kSecond + 1, 1, 2, 0, 2},
        {121 * kSecond - 1, 1, 2, 0, 2},
        {121 * kSecond, 1, 2, 0, 3},
        {kLongest, 1, 2, 0, 0x7FFF'FFFF},
        // 1.5 units of time each: as if each took one.
        {15 * kSecond, 10 * kSecond, 30 * kSecond, 20},
        // Each takes less than the clock can tell.
        {10 * kSecond - 1, 10 * kSecond, 1000 * kSecond, 0},
        // No rate, or no work.
        {100 * kSecond, 0, 1000, 0},
        {100 * kSecond, 1000, 1000, 0},
        {100 * kSecond, 1001, 1000, 0},
        // The clock was set back.
        {-100 * kSecond, 1, 1000, 0},
        // Beyond all bounds.
        {kLongest / 1000, 1, 1002, 0, 0x7FFF'FFFF},
        {2, uint64_t{1} << 63, kMost, 0},
    };
    for (const auto& row : rows) {
        CAPTURE(row.elapsed);
        CAPTURE(row.done);
        const TimeRemaining estimate = EstimateTimeRemaining(row.elapsed, row.done, row.total);
        const uint32_t number = row.seconds + row.minutes;
        const uint32_t unit = row.minutes != 0 ? IDS_MINUTES_REMAINING : IDS_SECONDS_REMAINING;
        CHECK(estimate.stringId == (number == 0 ? 0 : unit));
        if (number != 0) CHECK(estimate.number == number);
    }
}
