#include "ui/progress_arithmetic.h"

#include "res/resource.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace tidewell {

namespace {

constexpr int64_t kSecond = 10'000'000;  // in 100 ns
constexpr int64_t kMinute = 60 * kSecond;
// Turns a truncating division into one that rounds up, but for the last second: 60 s are one minute.
constexpr int64_t kMinuteRounding = kMinute - kSecond;
constexpr uint32_t kSecondsStep = 5;
constexpr uint32_t kLargestNumber = std::numeric_limits<int32_t>::max();  // what "%d" can show

// The time that is left, in 100 ns, at the rate so far; 0 when the rate tells nothing.
int64_t remainingTime(int64_t elapsed, uint64_t done, uint64_t total) {
    constexpr int64_t kLongest = std::numeric_limits<int64_t>::max() - kMinuteRounding;

    // A clock that was set back leaves a negative time.
    if (elapsed <= 0 || done == 0 || done >= total) return 0;
    const uint64_t perUnit = static_cast<uint64_t>(elapsed) / done;
    const uint64_t left = total - done;
    if (perUnit > static_cast<uint64_t>(kLongest) / left) return kLongest;
    return static_cast<int64_t>(perUnit * left);
}

}  // namespace

uint8_t ProgressShift(uint64_t total) {
    uint8_t shift = 0;
    while (total >> shift > 0xFFFF)
        shift = static_cast<uint8_t>(shift + 16);
    return shift;
}

TimeRemaining EstimateTimeRemaining(int64_t elapsed, uint64_t done, uint64_t total) {
    const int64_t remaining = remainingTime(elapsed, done, total);
    if (remaining > kMinute) {
        const int64_t minutes = (remaining + kMinuteRounding) / kMinute;
        // Only a little more than a minute rounds to 1, which the text's plural would not suit.
        const auto shown = std::clamp<int64_t>(minutes, 2, kLargestNumber);
        return {IDS_MINUTES_REMAINING, static_cast<uint32_t>(shown)};
    }
    const auto wholeSeconds = static_cast<uint32_t>(remaining / kSecond);
    const uint32_t seconds = (wholeSeconds + kSecondsStep - 1) / kSecondsStep * kSecondsStep;
    if (seconds == 0) return {0, 0};
    return {IDS_SECONDS_REMAINING, seconds};
}

int64_t SystemTime100ns() {
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    return static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

}  // namespace tidewell
