#include "resources/resource_type.h"

#include "messages.h"
#include "module/module_state.h"
#include "resources/resource_type_table.h"

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstring>
#include <iterator>

namespace tidewell {

namespace {

uint32_t numberOf(const ResourceType& type) {
    Be<uint32_t> number;
    std::memcpy(&number, type.bytes, sizeof number);
    return number;
}

// ASCII white space, but for the blank.
bool isControlSpace(uint8_t c) {
    return c >= '\t' && c <= '\r';
}

bool isShowable(uint8_t c) {
    return c == '\0' || isControlSpace(c) || (c >= ' ' && c <= '~');
}

// The bytes as a little-endian number: the last one first.
void writeNumber(const ResourceType& type, char* text) {
    constexpr char kDigits[] = "0123456789abcdef";
    *text++ = '(';
    *text++ = '$';
    for (size_t i = sizeof type.bytes; i-- > 0;) {
        *text++ = kDigits[type.bytes[i] / 16];
        *text++ = kDigits[type.bytes[i] % 16];
    }
    *text++ = ')';
    *text = '\0';
}

DWORD describeUnknown(const ResourceType& type, char* buffer, DWORD size) {
    char code[kTypeCodeCapacity];
    FormatTypeCode(type, code);
    char* inserts[] = {code};
    return FormatMessageA(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ARGUMENT_ARRAY, ResourceModule,
                          MSG_RESOURCE_TYPE, 0, buffer, size, reinterpret_cast<va_list*>(inserts));
}

}  // namespace

DWORD GetTypeDescription(const ResourceType& type, char* buffer, DWORD size) {
    if (size == 0) return 0;
    const uint32_t number = numberOf(type);
    for (const TypeRow& row : kKnownTypes) {
        if (row.type != number) continue;
        const auto capacity = static_cast<int>(std::min<DWORD>(size, INT_MAX));
        return static_cast<DWORD>(LoadStringA(ResourceModule, row.description, buffer, capacity));
    }
    return describeUnknown(type, buffer, size);
}

void FormatTypeCode(const ResourceType& type, char* text) {
    if (!std::all_of(std::begin(type.bytes), std::end(type.bytes), isShowable)) {
        writeNumber(type, text);
        return;
    }
    std::memcpy(text, type.bytes, sizeof type.bytes);
    text[sizeof type.bytes] = '\0';
}

}  // namespace tidewell
