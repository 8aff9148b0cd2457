#include "embedded_resources.h"

#include "pc/names/code_page.h"

#include <windows.h>

#include <algorithm>

extern "C" {
extern const uint8_t tidewell_resources_begin[];
extern const uint8_t tidewell_resources_end[];
}

namespace kernel {

ResourceFile embeddedResources() {
    return ResourceFile(std::span(tidewell_resources_begin, tidewell_resources_end));
}

}  // namespace kernel

// Whatever module is named, there is only one here that has resources.
int LoadStringA(HINSTANCE /*module*/, UINT id, LPSTR buffer, int capacity) {
    if (buffer == nullptr || capacity <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    buffer[0] = '\0';
    std::optional<std::u16string> text = kernel::embeddedResources().string(id);
    if (!text) {
        constexpr DWORD kResourceNameNotFound = 1814;  // ERROR_RESOURCE_NAME_NOT_FOUND
        SetLastError(kResourceNameNotFound);
        return 0;
    }
    // A text that does not fit is cut between two characters, which take one to four bytes.
    std::string ansi = pc::ansiFromUtf16(pc::ansiCodePage(), *text);
    while (ansi.size() >= static_cast<size_t>(capacity)) {
        text->pop_back();
        if (!text->empty() && (text->back() & 0xFC00) == 0xD800) text->pop_back();
        ansi = pc::ansiFromUtf16(pc::ansiCodePage(), *text);
    }
    *std::copy(ansi.begin(), ansi.end(), buffer) = '\0';
    return static_cast<int>(ansi.size());
}
