#include "resources/fork_file.h"

#include "base/text.h"
#include "macfile/volume_kind.h"

namespace tidewell {

void GetFileOfFork(const char* forkPath, char* path) {
    CopyPath(path, forkPath);
    char* const name = path + (FileNamePart(path) - path);
    if (equalsIgnoringCase(name, kResourceForkName) && name != path) {
        name[-1] = '\0';
    } else if (const char* const stream = lastCharacter(name, ':')) {
        if (equalsIgnoringCase(stream, kResourceForkStream)) path[stream - path] = '\0';
    }
}

}  // namespace tidewell
