#include "module_resources_windows.h"

#include <doctest/doctest.h>

namespace {

constexpr UINT kHighestString = 0xFFFF;

struct MessageBlock {
    DWORD low;
    DWORD high;
    DWORD offset;
};

BOOL CALLBACK appendName(HMODULE, LPCSTR, LPSTR name, LONG_PTR parameter) {
    auto& names = *reinterpret_cast<std::vector<std::string>*>(parameter);
    names.push_back(IS_INTRESOURCE(name) ? "#" + std::to_string(reinterpret_cast<UINT_PTR>(name)) : name);
    return TRUE;
}

const BYTE* resourceBytes(HMODULE module, LPCSTR name, LPCSTR type) {
    HRSRC const found = FindResourceA(module, name, type);
    REQUIRE(found != nullptr);
    return static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
}

std::string narrow(const WCHAR* text) {
    char buffer[2000] = "";
    WideCharToMultiByte(CP_ACP, 0, text, -1, buffer, sizeof buffer, nullptr, nullptr);
    return buffer;
}

}  // namespace

std::map<UINT, std::string> stringsOf(HMODULE module) {
    std::map<UINT, std::string> strings;
    for (UINT id = 0; id <= kHighestString; ++id) {
        char text[1000];
        if (id % 16 == 0 && !FindResourceA(module, MAKEINTRESOURCEA(id / 16 + 1), RT_STRING)) {
            id += 15;
            continue;
        }
        if (LoadStringA(module, id, text, sizeof text) != 0) strings[id] = text;
    }
    return strings;
}

std::map<DWORD, std::string> messagesOf(HMODULE module) {
    std::map<DWORD, std::string> messages;
    const BYTE* const table = resourceBytes(module, MAKEINTRESOURCEA(1), RT_MESSAGETABLE);
    const DWORD count = *reinterpret_cast<const DWORD*>(table);
    const auto* const blocks = reinterpret_cast<const MessageBlock*>(table + sizeof count);
    for (DWORD i = 0; i < count; ++i) {
        const BYTE* entry = table + blocks[i].offset;
        for (DWORD id = blocks[i].low; id <= blocks[i].high; ++id) {
            const WORD length = *reinterpret_cast<const WORD*>(entry);
            messages[id] = narrow(reinterpret_cast<const WCHAR*>(entry + 2 * sizeof(WORD)));
            entry += length;
        }
    }
    return messages;
}

std::vector<std::string> namesOf(HMODULE module, const char* type) {
    std::vector<std::string> names;
    EnumResourceNamesA(module, type, appendName, reinterpret_cast<LONG_PTR>(&names));
    return names;
}

std::vector<std::string> insertsOf(const std::string& text) {
    std::vector<std::string> inserts;
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '%') continue;
        const size_t start = i;
        while (text[i] == '%')
            ++i;
        size_t end = i + 1;
        if (end < text.size() && text[end] == '!') end = text.find('!', end + 1) + 1;
        inserts.push_back(text.substr(start, end - start));
        i = end - 1;
    }
    return inserts;
}
