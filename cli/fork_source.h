// Where the resource fork that the user means is: in a file's own fork, in the archive that the file is, or
// in the file's very bytes.
#ifndef TIDEWELL_CLI_FORK_SOURCE_H
#define TIDEWELL_CLI_FORK_SOURCE_H

#include "report.h"
#include "resources/resource_fork.h"

#include <string>

namespace cli {

struct ForkSource {
    std::string typed;    // the file, as the user named it
    std::string windows;  // its full Windows path
    bool fileIsFork;
};

// Opens the fork for reading its resources. A failure for a file without any.
Failure openFork(const ForkSource& source, tidewell::ResourceForkReader& reader);

}  // namespace cli

#endif
