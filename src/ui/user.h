// Who a worker speaks to: one table of functions, set when a program starts. The library's shows windows, the
// command's writes to the terminal, a test's follows a script. Workers do not know which: they call
// ui/progress.h, ui/confirm_replace.h, ui/file_failure.h and ui/pump_messages.h.
#ifndef TIDEWELL_UI_USER_H
#define TIDEWELL_UI_USER_H

#include "ui/file_failure.h"
#include "ui/progress_display.h"

namespace tidewell {

struct User {
    const ProgressDisplay* progress;
    int (*confirmReplace)(HWND owner, const char* path, BOOL several);  // ConfirmFileReplace
    int (*askAfterFailure)(const FileFailure& failure);                 // AskAfterFailure
    void (*pumpMessages)(HWND dialog);                                  // PumpMessages
};

// Returns the table that was set before. Until one is set, and after a null one, nobody is there: progress is
// not shown, no file is replaced, no failure is told, and nothing is pumped. The table outlives its use.
// Called while no other thread is in the library.
const User* SetUser(const User* user);

const User& CurrentUser();

}  // namespace tidewell

#endif
