// Packing a Mac file into a MacBinary file.
#ifndef TIDEWELL_CONVERT_CREATE_MACBINARY_H
#define TIDEWELL_CONVERT_CREATE_MACBINARY_H

#include "base/error_code.h"
#include "ui/progress.h"

extern "C" {

// Packs the Mac file `sourcePath` into the new file `outputPath`, which is replaced if it exists. The owner
// is not used. `progressRef` points to a ProgressDialog pointer; either may be null.
//
// Returns 0 and creates nothing for a file that keeps no Mac information (on NTFS one without its stream).
// 87: there is no such source, or its volume keeps no Mac information; 8, 38, 39, 123 for an output that is
// a fork or a stream of a file, 223 for a fork of 4 GB or more, 1223 when the user cancels; else the
// system's error (32 when the output is the source itself).
// The source is only read. After an error that follows the creation of the output no output is left; the
// shell is told only of a complete one.
tidewell::ErrorCode WINAPI CreateMacBinaryFile(HWND owner, const char* sourcePath, const char* outputPath,
                                               tidewell::ProgressDialog** progressRef);
}

#endif
