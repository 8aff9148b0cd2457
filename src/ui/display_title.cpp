#include "ui/display_title.h"

#include "base/path.h"

#include <commdlg.h>

namespace tidewell {

void GetDisplayTitle(const char* path, char* title) {
    if (GetFileTitleA(path, title, static_cast<WORD>(kPathCapacity)) != 0) CopyPath(title, path);
}

}  // namespace tidewell
