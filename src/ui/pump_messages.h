// Keeps windows alive during a long operation on their thread.
#ifndef TIDEWELL_UI_PUMP_MESSAGES_H
#define TIDEWELL_UI_PUMP_MESSAGES_H

#include <windows.h>

namespace tidewell {

// Handles every message that waits for the calling thread. `dialog`, which may be null, belongs to this
// thread; its keys work. A request to quit stays for the loop that runs the thread.
void PumpMessages(HWND dialog);

// The same for the messages of one window and of what is in it.
void PumpMessagesOf(HWND window, HWND dialog);

}  // namespace tidewell

#endif
