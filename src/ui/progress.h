// The progress of a long operation, as its worker sees it: an object that may be null, and free functions on
// it that do nothing harmful with a null one. The library shows it in a window, the command on a terminal.
//
// Everything runs on the thread that created the object. Where a function fails with ERROR_INVALID_PARAMETER
// it sets the thread's last error and returns 0.
#ifndef TIDEWELL_UI_PROGRESS_H
#define TIDEWELL_UI_PROGRESS_H

#include <windows.h>

#include <cstdint>

// Other programs know it by this name and nothing more of it.
struct TidewellProgress {
    HWND window;         // null until created, and where the display is no window
    uint32_t cancelled;  // set once by the user, never cleared
    uint64_t total;      // amount of work; the callers count bytes
    uint64_t done;       // amount done so far
    uint8_t shift;       // total and done are shifted right by it for the 16-bit bar
    int64_t clock;       // 100 ns: the starting moment while running, the elapsed time while paused
    uint32_t pauses;     // ProgressPause calls without their ProgressResume
    HINSTANCE instance;  // the module that holds the display's texts
};

namespace tidewell {

using ProgressDialog = TidewellProgress;

// A new object, or null with the last error: ERROR_INVALID_PARAMETER for a null instance or title,
// ERROR_NOT_ENOUGH_MEMORY without memory, else the display's own error. A window shows after a second, or at
// the first pause. With `startPaused` the clock starts at the first ProgressResume. The caller frees the
// object with ProgressDestroy.
ProgressDialog* ProgressCreate(HINSTANCE instance, const char* title, HWND owner, BOOL startPaused);

// Takes the display away and frees the object; null is ignored.
void ProgressDestroy(ProgressDialog* progress);

// Returns the icon shown before (null at the first call), or fails with ERROR_INVALID_PARAMETER for a null
// argument.
LRESULT ProgressSetIcon(ProgressDialog* progress, HICON icon);

// A null text leaves its line as it is.
BOOL ProgressSetText(ProgressDialog* progress, const char* line1, const char* line2);

// Serves the display. 1: go on; 0: the user has cancelled. A null object always goes on.
BOOL ProgressPump(ProgressDialog* progress);

// The owner for prompts; null for a null object, and where the display is no window.
HWND ProgressWindow(const ProgressDialog* progress);

// Amounts are in the caller's unit; the file conversions count bytes. Each fails with ERROR_INVALID_PARAMETER
// for a null argument.
BOOL ProgressSetTotal(ProgressDialog* progress, const uint64_t* total);

// These move the bar and serve the display; only ProgressPump tells of a cancel. Done beyond the total
// raises the total.
BOOL ProgressSetDone(ProgressDialog* progress, const uint64_t* done);
BOOL ProgressAdvance(ProgressDialog* progress, uint32_t amount);
BOOL ProgressGetDone(const ProgressDialog* progress, uint64_t* done);

// Around every prompt. Pauses nest; the outermost pair stops and starts the clock. A pause shows the display
// at once. Resume without a pause fails with ERROR_INVALID_PARAMETER.
BOOL ProgressPause(ProgressDialog* progress);
BOOL ProgressResume(ProgressDialog* progress);

}  // namespace tidewell

#endif
