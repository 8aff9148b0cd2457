// What shows a ProgressDialog, as a table.
#ifndef TIDEWELL_UI_PROGRESS_DISPLAY_H
#define TIDEWELL_UI_PROGRESS_DISPLAY_H

#include "ui/progress.h"
#include "ui/progress_arithmetic.h"

namespace tidewell {

struct ProgressDisplay {
    // Makes the display, not yet shown; fails with the last error set. `progress` outlives it.
    BOOL (*create)(ProgressDialog& progress, const char* title, HWND owner);
    void (*destroy)(ProgressDialog& progress);

    // Returns the icon shown before, or null.
    LRESULT (*setIcon)(ProgressDialog& progress, HICON icon);
    // A null text leaves its line as it is.
    void (*setText)(ProgressDialog& progress, const char* line1, const char* line2);

    // The bar goes from 0 to `range`.
    void (*setRange)(ProgressDialog& progress, uint16_t range);
    void (*setPosition)(ProgressDialog& progress, uint16_t position);

    // A prompt follows: a window shows behind it, without waiting for its first second; a terminal's line
    // makes room for it.
    void (*showNow)(ProgressDialog& progress);

    // Lets the user act; sets progress.cancelled when they cancel.
    void (*serve)(ProgressDialog& progress);
};

// The estimate that a display is to show now; none while the clock is paused or nothing is done.
TimeRemaining ProgressTimeRemaining(const ProgressDialog& progress);

}  // namespace tidewell

#endif
