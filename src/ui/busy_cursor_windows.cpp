#include "ui/busy_cursor.h"

namespace tidewell {

BusyCursor::BusyCursor(HWND window)
    : window_(window), previous_(SetCursor(LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)))) {
    if (window_) SetCapture(window_);
}

BusyCursor::~BusyCursor() {
    SetCursor(previous_);
    if (window_) ReleaseCapture();
}

}  // namespace tidewell
