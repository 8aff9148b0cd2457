// Text between the PC's ANSI code page and UTF-16.
#include "call.h"
#include "kernel.h"

#include <algorithm>
#include <string>

namespace kernel {

namespace {

// The text with its NUL when `length` is negative, else that many characters.
template <typename Character>
std::basic_string_view<Character> viewOf(const Character* text, int length) {
    if (length >= 0) return {text, static_cast<size_t>(length)};
    return {text, std::char_traits<Character>::length(text) + 1};
}

// What all callers of the two conversions must keep to. The subset has no other code page.
template <typename From, typename To>
bool valid(UINT codePage, const From* source, int length, const To* target, int capacity) {
    if (codePage != CP_ACP || source == nullptr || length == 0 || capacity < 0) return false;
    return capacity == 0 || target != nullptr;
}

// Windows fills the target with as much as fits before it says that not all does.
template <typename From, typename To>
int deliver(Call& call, const From& text, To* target, int capacity) {
    const auto size = static_cast<int>(text.size());
    if (capacity == 0) return call.end(0, size, 0);
    std::copy_n(text.begin(), std::min(size, capacity), target);
    return call.end(size <= capacity ? 0 : ERROR_INSUFFICIENT_BUFFER, size, 0);
}

std::u16string_view unitsOf(const WCHAR* text, int length, std::u16string& copy) {
    const auto view = viewOf(text, length);
    copy.assign(view.begin(), view.end());
    return copy;
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR text, int length, LPWSTR wide, int capacity) {
    Call call("MultiByteToWideChar", "", static_cast<uint32_t>(length));
    if (!valid(codePage, text, length, wide, capacity)) return call.end(ERROR_INVALID_PARAMETER, 0, 0);
    const pc::Error error = call.fault();
    if (error != 0) return call.end(error, 0, 0);
    const std::string_view source = viewOf(text, length);
    const bool strict = (flags & MB_ERR_INVALID_CHARS) != 0;
    if (strict && !pc::utf8FromAnsi(pc::ansiCodePage(), source))
        return call.end(ERROR_NO_UNICODE_TRANSLATION, 0, 0);
    return deliver(call, pc::utf16FromAnsi(pc::ansiCodePage(), source), wide, capacity);
}

int WideCharToMultiByte(UINT codePage, DWORD /*flags*/, LPCWSTR wide, int length, LPSTR text, int capacity,
                        LPCSTR defaultCharacter, LPBOOL usedDefault) {
    Call call("WideCharToMultiByte", "", static_cast<uint32_t>(length));
    // The subset replaces by the code page's own default character, and does not tell.
    const bool own = defaultCharacter == nullptr && usedDefault == nullptr;
    if (!own || !valid(codePage, wide, length, text, capacity))
        return call.end(ERROR_INVALID_PARAMETER, 0, 0);
    const pc::Error error = call.fault();
    if (error != 0) return call.end(error, 0, 0);
    std::u16string copy;
    return deliver(call, pc::ansiFromUtf16(pc::ansiCodePage(), unitsOf(wide, length, copy)), text, capacity);
}

}  // namespace kernel
