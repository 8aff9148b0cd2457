// Packing a Mac file into a MacBinary file: what tidewell.h declares, and what comes before it.
#ifndef TIDEWELL_CONVERT_CREATE_MACBINARY_H
#define TIDEWELL_CONVERT_CREATE_MACBINARY_H

#include "base/error_code.h"
#include "macfile/fork_paths.h"
#include "tidewell.h"
#include "ui/progress.h"

namespace tidewell {

// The paths of the file at `sourcePath` when it can be packed. ERROR_INVALID_PARAMETER: there is no such
// file, or its volume keeps no Mac information; ERROR_FILE_NOT_FOUND: on a volume that does, it keeps none
// (under Windows NT); else the system's error.
ErrorCode FindMacFile(const char* sourcePath, ForkPaths& paths);

// CreateMacBinaryFile for full paths. `progress` may be null.
ErrorCode PackMacFile(const char* sourcePath, const char* outputPath, ProgressDialog* progress);

}  // namespace tidewell

#endif
