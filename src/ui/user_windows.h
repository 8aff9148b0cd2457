// The user in front of the system's windows, and what the table is made of.
#ifndef TIDEWELL_UI_USER_WINDOWS_H
#define TIDEWELL_UI_USER_WINDOWS_H

#include "ui/user.h"

namespace tidewell {

extern const User WindowsUser;

// The modeless dialog "FILEPROGRESS".
extern const ProgressDisplay ProgressWindowDisplay;

// The dialog IDD_CONFIRM_REPLACE.
int ConfirmReplaceInWindow(HWND owner, const char* path, BOOL several);

// A message box titled IDS_ERROR_TITLE: the message, or the error's number where the system has no text for
// it.
int AskAfterFailureInBox(const FileFailure& failure);

// PumpMessages, for the messages of one window and of what is in it; null: for all.
void PumpMessagesOf(HWND window, HWND dialog);

}  // namespace tidewell

#endif
