#include "module_message.h"

#include "embedded_resource.h"
#include "pc/names/code_page.h"

namespace kernel {

namespace {

constexpr uint16_t kMessageTable = 11;  // RT_MESSAGETABLE
constexpr size_t kBlockSize = 12;       // its first number, its last one, and where its messages begin
constexpr size_t kEntryHeader = 4;      // the entry's size, and that it is UTF-16

const uint8_t* findMessage(DWORD id) {
    const uint8_t* const table = embeddedResource(kMessageTable, 1);
    if (table == nullptr) return nullptr;
    const uint8_t* block = table + sizeof(uint32_t);
    for (uint32_t left = loadLittle<uint32_t>(table); left > 0; --left, block += kBlockSize) {
        const uint32_t first = loadLittle<uint32_t>(block);
        if (id < first || id > loadLittle<uint32_t>(block + 4)) continue;
        const uint8_t* entry = table + loadLittle<uint32_t>(block + 8);
        for (uint32_t number = first; number < id; ++number)
            entry += loadLittle<uint16_t>(entry);
        return entry;
    }
    return nullptr;
}

}  // namespace

DWORD formatModuleMessage(DWORD id, const char* const* inserts, std::string& text) {
    const uint8_t* const entry = findMessage(id);
    if (entry == nullptr) return ERROR_MR_MID_NOT_FOUND;
    const size_t units = (loadLittle<uint16_t>(entry) - kEntryHeader) / sizeof(char16_t);
    const std::string pattern =
        pc::ansiFromUtf16(pc::ansiCodePage(), loadText(entry + kEntryHeader, units).c_str());
    for (size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%' || i + 1 == pattern.size()) {
            text += pattern[i];
            continue;
        }
        const char directive = pattern[++i];
        if (directive == '0') break;
        if (directive >= '1' && directive <= '9')
            text += inserts[directive - '1'];
        else
            text += directive;
    }
    return 0;
}

}  // namespace kernel
