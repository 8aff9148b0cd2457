// Paths as a volume is given them.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_VOLUME_PATH_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_VOLUME_PATH_H

#include "pc/file.h"

#include <string>
#include <vector>

namespace pc {

struct VolumePath {
    std::vector<std::string> components;  // none for the root
    std::string stream;                   // what follows the ":" of the last component; empty: no stream
    bool folderOnly = false;              // a separator ends the path
};

enum class StreamNames { none, allowed };

// "/" separates as "\" does, as in Windows; "." and ".." are resolved and never lead out of the root.
// ERROR_INVALID_NAME for a character that Windows reserves, or a ":" that begins no stream.
Error parseVolumePath(const std::string& path, StreamNames streams, VolumePath& parsed);

}  // namespace pc

#endif
