#include "ui/display_title.h"

#include <commdlg.h>

#include <cstring>

namespace tidewell {

void GetDisplayTitle(const char* path, char* title) {
    if (GetFileTitleA(path, title, static_cast<WORD>(kPathCapacity)) == 0) return;
    const size_t length = std::strlen(path);
    const size_t kept = length < kPathCapacity ? length : kPathCapacity - 1;
    std::memcpy(title, path, kept);
    title[kept] = '\0';
}

}  // namespace tidewell
