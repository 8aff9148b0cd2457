// The numbers behind a progress display.
#ifndef TIDEWELL_UI_PROGRESS_ARITHMETIC_H
#define TIDEWELL_UI_PROGRESS_ARITHMETIC_H

#include <cstdint>

namespace tidewell {

// The smallest of 0, 16, 32 and 48 that brings `total` into the bar's 16 bits.
uint8_t ProgressShift(uint64_t total);

struct TimeRemaining {
    uint32_t stringId;  // its template with one "%d"; 0: no estimate, the text stays as it is
    uint32_t number;    // minutes or seconds, as the template says
};

// `elapsed` in 100 ns for `done` of `total`.
TimeRemaining EstimateTimeRemaining(int64_t elapsed, uint64_t done, uint64_t total);

// The system's time in 100 ns.
int64_t SystemTime100ns();

}  // namespace tidewell

#endif
