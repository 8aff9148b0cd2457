// Paths as other programs give them, made full.
#ifndef TIDEWELL_BASE_FULL_PATH_H
#define TIDEWELL_BASE_FULL_PATH_H

#include "base/file.h"

namespace tidewell {

// The full path, from a drive or a server on, of any path that the system takes; "\\?\" before a drive or a
// server goes. `full` receives it, kPathCapacity bytes. The kind of a volume can be told of such a path only.
// 123 for a path that means something else without its "\\?\", 206 for one that does not fit; else the
// system's error.
ErrorCode GetFullPath(const char* path, char* full);

// The same for a file that is to be written, or a folder for such: 123 for a device, too.
ErrorCode GetFullOutputPath(const char* path, char* full);

}  // namespace tidewell

#endif
