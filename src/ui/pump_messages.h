// Keeps windows alive during a long operation on their thread.
#ifndef TIDEWELL_UI_PUMP_MESSAGES_H
#define TIDEWELL_UI_PUMP_MESSAGES_H

#include <windows.h>

namespace tidewell {

// Handles every message that waits for the calling thread. `dialog`, which may be null, belongs to this
// thread; its keys work. A request to quit stays for the loop that runs the thread.
void PumpMessages(HWND dialog);

// Whether the calling thread has been asked to quit. A modal window ends then by itself, and what it returns
// is nobody's answer.
bool IsAskedToQuit();

}  // namespace tidewell

#endif
