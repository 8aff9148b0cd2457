#include "ui/format_text.h"

namespace tidewell {

namespace {

LocalText format(DWORD flags, LPCVOID source, DWORD messageId, va_list* inserts) {
    char* text = nullptr;
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | flags, source, messageId, 0,
                                        reinterpret_cast<char*>(&text), 0, inserts);
    LocalText formatted(text);
    if (length == 0) formatted.reset();
    return formatted;
}

}  // namespace

LocalText FormatText(const char* pattern, va_list* inserts) {
    return format(FORMAT_MESSAGE_FROM_STRING, pattern, 0, inserts);
}

LocalText FormatModuleMessage(HINSTANCE module, DWORD messageId, va_list* inserts) {
    return format(FORMAT_MESSAGE_FROM_HMODULE, module, messageId, inserts);
}

LocalText FormatModuleMessageWithText(HINSTANCE module, DWORD messageId, const char* insert) {
    DWORD_PTR array[] = {reinterpret_cast<DWORD_PTR>(insert)};
    return format(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ARGUMENT_ARRAY, module, messageId,
                  reinterpret_cast<va_list*>(array));
}

LocalText FormatSystemError(DWORD errorCode) {
    return format(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, errorCode, nullptr);
}

}  // namespace tidewell
