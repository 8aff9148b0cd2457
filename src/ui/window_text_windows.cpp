#include "ui/window_text.h"

namespace tidewell {

LocalText AllocateText(SIZE_T capacity) {
    return LocalText(static_cast<char*>(LocalAlloc(LPTR, capacity)));
}

LocalText TextOfWindow(HWND window) {
    const int capacity = GetWindowTextLengthA(window) + 1;
    LocalText text = AllocateText(static_cast<SIZE_T>(capacity));
    if (text) GetWindowTextA(window, text.get(), capacity);
    return text;
}

}  // namespace tidewell
