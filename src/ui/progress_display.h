// What shows a ProgressDialog. There is one in each program, chosen when it is linked: the dialog
// (progress_window.cpp), the command's terminal line, or a test's script.
#ifndef TIDEWELL_UI_PROGRESS_DISPLAY_H
#define TIDEWELL_UI_PROGRESS_DISPLAY_H

#include "progress.h"
#include "progress_arithmetic.h"

namespace tidewell {

// The estimate that a display is to show now; none while the clock is paused or nothing is done.
TimeRemaining ProgressTimeRemaining(const ProgressDialog& progress);

}  // namespace tidewell

namespace tidewell::progress_display {

// Makes the display, not yet shown; fails with the last error set. `progress` outlives it.
BOOL create(ProgressDialog& progress, const char* title, HWND owner);
void destroy(ProgressDialog& progress);

LRESULT setIcon(ProgressDialog& progress, HICON icon);
void setText(ProgressDialog& progress, const char* line1, const char* line2);

// The bar goes from 0 to `range`.
void setRange(ProgressDialog& progress, uint16_t range);
void setPosition(ProgressDialog& progress, uint16_t position);

// Shows the display now, if it is not shown yet, instead of after its first second.
void showNow(ProgressDialog& progress);

// Lets the user act; sets progress.cancelled when they cancel.
void serve(ProgressDialog& progress);

}  // namespace tidewell::progress_display

#endif
