#include "ui/window_text.h"

#include "module/module_state.h"
#include "ui/format_text.h"

#include <cstdarg>

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

BOOL SetWindowTextFromMessage(HWND window, DWORD messageId, ...) {
    va_list inserts;
    va_start(inserts, messageId);
    const LocalText text = FormatModuleMessage(ResourceModule, messageId, &inserts);
    va_end(inserts);
    return text ? SetWindowTextA(window, text.get()) : FALSE;
}

}  // namespace tidewell
