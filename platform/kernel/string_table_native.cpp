// Native builds: the library's strings.
#include "embedded_resource.h"
#include "pc/names/code_page.h"

#include <windows.h>

#include <algorithm>

namespace {

constexpr uint16_t kStringTable = 6;  // RT_STRING
constexpr uint32_t kStringsPerBlock = 16;
constexpr DWORD kResourceNameNotFound = 1814;  // ERROR_RESOURCE_NAME_NOT_FOUND

// A block's strings follow each other, each with its length before it.
std::u16string stringIn(const uint8_t* block, uint32_t index) {
    using kernel::loadLittle;
    for (; index > 0; --index)
        block += sizeof(WCHAR) * (1 + loadLittle<uint16_t>(block));
    return kernel::loadText(block + sizeof(WCHAR), loadLittle<uint16_t>(block));
}

}  // namespace

// Whatever module is named, there is only one here that has resources.
int LoadStringA(HINSTANCE /*module*/, UINT id, LPSTR buffer, int capacity) {
    const uint8_t* const block = kernel::embeddedResource(kStringTable, id / kStringsPerBlock + 1);
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
