// Native builds: the library's strings, out of its compiled resource file, which is linked into the program.
#include "base/byte_order.h"
#include "pc/names/code_page.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

extern "C" {
extern const uint8_t tidewell_resources_begin[];
extern const uint8_t tidewell_resources_end[];
}

namespace {

using tidewell::Le;

constexpr uint16_t kStringTable = 6;  // RT_STRING
constexpr uint32_t kStringsPerBlock = 16;
constexpr uint16_t kNumberFollows = 0xFFFF;
constexpr size_t kAlignment = 4;
constexpr DWORD kResourceNameNotFound = 1814;  // ERROR_RESOURCE_NAME_NOT_FOUND

// How an entry begins whose type and name are numbers. Its data is behind the header, then padding.
struct Entry {
    Le<uint32_t> dataSize;
    Le<uint32_t> headerSize;
    Le<uint16_t> typeMark, type;
    Le<uint16_t> nameMark, name;
};
static_assert(sizeof(Entry) == 16);

const uint8_t* stringBlock(uint32_t block) {
    const uint8_t* at = tidewell_resources_begin;
    while (at < tidewell_resources_end) {
        Entry entry;
        std::memcpy(&entry, at, sizeof entry);
        const bool numbers = entry.typeMark == kNumberFollows && entry.nameMark == kNumberFollows;
        if (numbers && entry.type == kStringTable && entry.name == block) return at + entry.headerSize;
        at += entry.headerSize + (entry.dataSize + kAlignment - 1) / kAlignment * kAlignment;
    }
    return nullptr;
}

uint16_t load16(const uint8_t* bytes) {
    Le<uint16_t> number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

// A block's strings follow each other, each with its length before it.
std::u16string stringIn(const uint8_t* block, uint32_t index) {
    for (; index > 0; --index)
        block += sizeof(WCHAR) * (1 + load16(block));
    std::u16string text(load16(block), u'\0');
    for (char16_t& unit : text)
        unit = static_cast<char16_t>(load16(block += sizeof(WCHAR)));
    return text;
}

}  // namespace

// Whatever module is named, there is only one here that has resources.
int LoadStringA(HINSTANCE /*module*/, UINT id, LPSTR buffer, int capacity) {
    const uint8_t* const block = stringBlock(id / kStringsPerBlock + 1);
    if (buffer == nullptr || capacity <= 0 || block == nullptr) {
        SetLastError(block == nullptr ? kResourceNameNotFound : ERROR_INVALID_PARAMETER);
        return 0;
    }
    // A text that does not fit is cut between two characters, which take one to four bytes.
    std::u16string text = stringIn(block, id % kStringsPerBlock);
    std::string ansi = pc::ansiFromUtf16(pc::ansiCodePage(), text);
    while (ansi.size() >= static_cast<size_t>(capacity)) {
        text.pop_back();
        if (!text.empty() && (text.back() & 0xFC00) == 0xD800) text.pop_back();
        ansi = pc::ansiFromUtf16(pc::ansiCodePage(), text);
    }
    *std::copy(ansi.begin(), ansi.end(), buffer) = '\0';
    return static_cast<int>(ansi.size());
}
