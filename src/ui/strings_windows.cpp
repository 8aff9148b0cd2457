#include "ui/strings.h"

#include "base/error_code.h"
#include "base/text.h"
#include "module/module_state.h"
#include "ui/format_text.h"
#include "ui/window_text.h"

#include <cstdarg>

namespace tidewell {

namespace {

constexpr int kStringStep = 256;  // bytes
// A string that leaves fewer bytes may have been cut: one is the NUL, one the half of a double-byte
// character that found no room.
constexpr int kLeftByWholeString = 2;

}  // namespace

char* LoadStringAlloc(HINSTANCE module, UINT stringId) {
    for (int capacity = kStringStep;; capacity += kStringStep) {
        // Zero-filled, so that a list made of the string ends.
        LocalText text = AllocateText(static_cast<SIZE_T>(capacity));
        if (!text) return nullptr;
        const int length = LoadStringA(module, stringId, text.get(), capacity);
        if (length == 0) return nullptr;
        if (capacity - length > kLeftByWholeString) return text.release();
    }
}

char* LoadStringList(UINT stringId) {
    char* const list = LoadStringAlloc(ResourceModule, stringId);
    if (!list) return nullptr;
    for (char* c = list; *c != '\0';) {
        char* const next = list + (nextCharacter(c) - list);
        if (*c == '|') *c = '\0';
        c = next;
    }
    return list;
}

BOOL SetWindowTextFromString(HWND window, UINT stringId) {
    const LocalText text(LoadStringAlloc(ResourceModule, stringId));
    return text ? SetWindowTextA(window, text.get()) : FALSE;
}

BOOL SetDlgItemTextFromString(HWND dialog, int controlId, UINT stringId) {
    const LocalText text(LoadStringAlloc(ResourceModule, stringId));
    return text ? SetDlgItemTextA(dialog, controlId, text.get()) : FALSE;
}

BOOL FormatWindowText(HWND dialog, int controlId, ...) {
    HWND const control = GetDlgItem(dialog, controlId);
    if (!control) return 0;
    const LocalText pattern = TextOfWindow(control);
    if (!pattern) return failWith(ERROR_NOT_ENOUGH_MEMORY);

    va_list inserts;
    va_start(inserts, controlId);
    const LocalText text = FormatText(pattern.get(), &inserts);
    va_end(inserts);
    return text && SetWindowTextA(control, text.get());
}

}  // namespace tidewell
