// Packing a Mac file into a MacBinary file.
#ifndef TIDEWELL_CONVERT_CREATE_MACBINARY_H
#define TIDEWELL_CONVERT_CREATE_MACBINARY_H

#include "base/error_code.h"
#include "macfile/fork_paths.h"
#include "ui/progress.h"

namespace tidewell {

// The paths of the file at `sourcePath` when it can be packed. 87: there is no such file, or its volume keeps
// no Mac information; 2: on a volume that does, it keeps none (under Windows NT); else the system's error.
ErrorCode FindMacFile(const char* sourcePath, ForkPaths& paths);

// CreateMacBinaryFile for full paths. `progress` may be null.
ErrorCode PackMacFile(const char* sourcePath, const char* outputPath, ProgressDialog* progress);

}  // namespace tidewell

extern "C" {

// Packs the Mac file `sourcePath` into the new file `outputPath`, by any ANSI paths. An output that exists is
// replaced, and lost even when packing fails after that. The owner is not used. `progressRef` points to a
// ProgressDialog pointer; either may be null.
//
// Returns 0 and creates nothing where FindMacFile gives 2. 87 as FindMacFile, and for a null path; 8 without
// memory; 38 for a source that ends early; 39 for a short write; 123 for an output that is a device, or a
// fork or a stream of a file; 223 for a fork of 4 GB or more; 1223 when the user cancels; else the system's
// error (32 when the output is the source itself). The source is only read. After an error that follows the
// creation of the output no output is left; the shell is told only of a complete one.
tidewell::ErrorCode WINAPI CreateMacBinaryFile(HWND owner, const char* sourcePath, const char* outputPath,
                                               tidewell::ProgressDialog** progressRef);
}

#endif
