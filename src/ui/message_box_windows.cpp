#include "ui/message_box.h"

#include "module/module_state.h"
#include "ui/format_text.h"
#include "ui/pump_messages.h"
#include "ui/size_scale.h"
#include "ui/strings.h"
#include "ui/window_text.h"

namespace tidewell {

namespace {

constexpr int kNotShown = -1;

LocalText titleOf(HWND owner) {
    LocalText title = TextOfWindow(owner);
    if (title && *title.get() == '\0') title.reset();
    return title;
}

int showBox(HWND owner, const LocalText& text, const LocalText& title, UINT style) {
    if (!text || !title) return kNotShown;
    const int button = MessageBoxA(owner, text.get(), title.get(), style);
    return button != 0 && !IsAskedToQuit() ? button : kNotShown;
}

// A percent sign in the text of an error is no insert of the message that the text becomes part of.
LocalText protectPercentSigns(const char* text) {
    LocalText result = AllocateText(2 * static_cast<SIZE_T>(lstrlenA(text)) + 1);
    if (!result) return result;
    char* out = result.get();
    // No second byte of a double-byte character is a percent sign.
    for (const char* c = text; *c != '\0'; ++c) {
        if (*c == '%') *out++ = '%';
        *out++ = *c;
    }
    return result;
}

LocalText errorText(ErrorCode errorCode) {
    const LocalText text = FormatSystemError(errorCode);
    if (text) return protectPercentSigns(text.get());
    if (GetLastError() != ERROR_INVALID_PARAMETER) return {};
    LocalText number = AllocateText(kDigitsCapacity);
    if (number) wsprintfA(number.get(), "%d", static_cast<int>(errorCode));
    return number;
}

}  // namespace

int ShowMessage(HINSTANCE module, HWND owner, DWORD messageId, int titleId, UINT style, va_list* inserts) {
    if (!owner && titleId == kOwnersTitle) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return kNotShown;
    }
    const LocalText text = FormatModuleMessage(module, messageId, inserts);
    if (!text) return kNotShown;
    const LocalText title = titleId == kOwnersTitle
                                ? titleOf(owner)
                                : LocalText(LoadStringAlloc(module, static_cast<UINT>(titleId)));
    return showBox(owner, text, title, style);
}

int MessageBoxFromTable(HWND owner, DWORD messageId, int titleId, UINT style, ...) {
    va_list inserts;
    va_start(inserts, style);
    const int button = ShowMessage(ResourceModule, owner, messageId, titleId, style, &inserts);
    va_end(inserts);
    return button;
}

int ShowErrorMessage(HWND owner, ErrorCode errorCode, DWORD messageId, int titleId, UINT style, ...) {
    const LocalText error = errorText(errorCode);
    if (!error) return kNotShown;
    const LocalText pattern = FormatModuleMessageWithText(ResourceModule, messageId, error.get());
    if (!pattern) return kNotShown;

    va_list inserts;
    va_start(inserts, style);
    const LocalText text = FormatText(pattern.get(), &inserts);
    va_end(inserts);
    const LocalText title(LoadStringAlloc(ResourceModule, static_cast<UINT>(titleId)));
    return showBox(owner, text, title, style);
}

}  // namespace tidewell
