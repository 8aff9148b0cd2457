#include "resources/fork_file.h"

#include "ui/stored_name.h"

namespace tidewell {

void GetLongFileOfFork(const char* forkPath, char* path) {
    char file[kPathCapacity];
    GetFileOfFork(forkPath, file);
    const DWORD length = GetShortPath(file, path, kPathCapacity);
    // Without a short form it is known by the path that it has.
    if (length == 0 || length >= kPathCapacity) lstrcpyA(path, file);
    RestoreStoredName(path);
}

}  // namespace tidewell
