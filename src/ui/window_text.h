// Texts of windows, at their full length.
#ifndef TIDEWELL_UI_WINDOW_TEXT_H
#define TIDEWELL_UI_WINDOW_TEXT_H

#include "base/local_memory.h"

namespace tidewell {

// Zero-filled room for a text; empty without memory.
LocalText AllocateText(SIZE_T capacity);

// The window's text, of a control too. Empty without memory.
LocalText TextOfWindow(HWND window);

// Sets a message of ResourceModule's; each further argument is for one of its inserts, of the type that the
// insert's format says. Returns the set call's result, 0 when there is no such message.
BOOL SetWindowTextFromMessage(HWND window, DWORD messageId, ...);

}  // namespace tidewell

#endif
