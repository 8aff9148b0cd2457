// Keeps windows alive during a long operation on their thread.
#ifndef TIDEWELL_UI_PUMP_MESSAGES_H
#define TIDEWELL_UI_PUMP_MESSAGES_H

#include <windows.h>

namespace tidewell {

// Handles every message that waits for the calling thread. `dialog`, which may be null, belongs to this
// thread; its keys work. A request to quit stays for the loop that runs the thread.
void PumpMessages(HWND dialog);

}  // namespace tidewell

#endif
