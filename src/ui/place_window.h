// Where new windows come up, and how large.
#ifndef TIDEWELL_UI_PLACE_WINDOW_H
#define TIDEWELL_UI_PLACE_WINDOW_H

#include <windows.h>

namespace tidewell {

// Moves a new top-level window near its owner, or near the desktop's corner when it has none; with
// `cascadeIndex`, that many captions further down and to the right. It stays within the screen's right and
// bottom edges. Neither its size nor what is active changes.
void PlaceWindow(HWND window, int cascadeIndex);

// Moves a window to the middle of what the taskbar leaves of the screen. Its size does not change.
void CentreWindow(HWND window);

// Where a control is in its dialog, in pixels.
RECT PlaceOfControl(HWND control);

// Moves a control within its dialog.
void MoveControl(HWND control, LONG x, LONG y);

// Adds room at the foot of a window or of a control, in pixels.
void GrowWindow(HWND window, LONG height);

}  // namespace tidewell

#endif
