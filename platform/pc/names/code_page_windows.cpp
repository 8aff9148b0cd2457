// Conversion by Windows itself.
#include "pc/names/code_page.h"

#include <windows.h>

namespace pc {

namespace {

std::optional<std::wstring> wideFrom(unsigned codePage, std::string_view text) {
    if (text.empty()) return std::wstring();
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), length, nullptr, 0);
    if (size == 0) return std::nullopt;
    std::wstring wide(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), length, wide.data(), size);
    return wide;
}

std::optional<std::string> narrowFrom(unsigned codePage, std::wstring_view wide, bool exact) {
    if (wide.empty()) return std::string();
    BOOL replaced = FALSE;
    // UTF-8 holds every character and takes no default.
    BOOL* const replacedPointer = codePage == kCodePageUtf8 ? nullptr : &replaced;
    const int length = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, nullptr, replacedPointer);
    std::string text(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(), size, nullptr, replacedPointer);
    if (size == 0 || (exact && replaced)) return std::nullopt;
    return text;
}

}  // namespace

std::optional<std::string> utf8FromAnsi(unsigned codePage, std::string_view text) {
    if (codePage == kCodePageUtf8) return std::string(text);
    const std::optional<std::wstring> wide = wideFrom(codePage, text);
    if (!wide) return std::nullopt;
    return narrowFrom(kCodePageUtf8, *wide, true);
}

std::optional<std::string> ansiFromUtf8(unsigned codePage, std::string_view text, bool exact) {
    if (codePage == kCodePageUtf8) return std::string(text);
    const std::optional<std::wstring> wide = wideFrom(kCodePageUtf8, text);
    if (!wide) return std::nullopt;
    return narrowFrom(codePage, *wide, exact);
}

}  // namespace pc
