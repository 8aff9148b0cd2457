// Native builds: the common dialogs' title of a file.
#include "pc/names/code_page.h"

#include <commdlg.h>

#include <cstring>

namespace {

constexpr short kNoTitle = -1;

bool isSeparator(char c) {
    return c == '\\' || c == '/' || c == ':';
}

// What follows the last separator; null when the path holds a wildcard.
const char* namePart(const char* path) {
    const unsigned codePage = pc::ansiCodePage();
    const char* name = path;
    for (; *path != '\0'; ++path) {
        if (*path == '*' || *path == '?') return nullptr;
        if (isSeparator(*path)) name = path + 1;
        if (pc::isLeadByte(codePage, static_cast<uint8_t>(*path)) && path[1] != '\0') ++path;
    }
    return name;
}

}  // namespace

extern "C" short GetFileTitleA(LPCSTR path, LPSTR title, WORD capacity) {
    const char* const name = path != nullptr ? namePart(path) : nullptr;
    if (name == nullptr || *name == '\0') return kNoTitle;
    const size_t size = std::strlen(name) + 1;
    if (size > INT16_MAX) return kNoTitle;
    if (title == nullptr || size > capacity) return static_cast<short>(size);
    std::memcpy(title, name, size);
    return 0;
}
