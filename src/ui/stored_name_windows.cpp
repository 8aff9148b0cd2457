#include "ui/stored_name.h"

#include "base/path.h"
#include "base/text.h"

namespace tidewell {

void RestoreStoredName(char* path) {
    WIN32_FIND_DATAA found;
    HANDLE const search = FindFirstFileA(path, &found);
    if (search == INVALID_HANDLE_VALUE) return;
    FindClose(search);
    // In place of a character that the code page lacks: no name that could be used.
    if (lastCharacter(found.cFileName, '?')) return;
    char* const name = path + (FileNamePart(path) - path);
    lstrcpynA(name, found.cFileName, static_cast<int>(path + kPathCapacity - name));
}

}  // namespace tidewell
