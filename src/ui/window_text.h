// The text of a window, at its full length.
#ifndef TIDEWELL_UI_WINDOW_TEXT_H
#define TIDEWELL_UI_WINDOW_TEXT_H

#include "base/local_memory.h"

namespace tidewell {

// Zero-filled room for a text; empty without memory.
LocalText AllocateText(SIZE_T capacity);

// The window's text, of a control too. Empty without memory.
LocalText TextOfWindow(HWND window);

}  // namespace tidewell

#endif
