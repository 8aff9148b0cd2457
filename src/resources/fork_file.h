// The file that a resource fork belongs to.
#ifndef TIDEWELL_RESOURCES_FORK_FILE_H
#define TIDEWELL_RESOURCES_FORK_FILE_H

#include "base/path.h"

namespace tidewell {

// The path of the file whose resource fork is at `forkPath`, without what GetResourceForkPath has added; a
// path of no fork as it is. `path` holds kPathCapacity bytes.
void GetFileOfFork(const char* forkPath, char* path);

// The same by the name under which the file is stored, in its short folder.
void GetLongFileOfFork(const char* forkPath, char* path);

}  // namespace tidewell

#endif
