// Whole transfers: a transfer cut short is an error with its code.
#ifndef TIDEWELL_BASE_FILE_H
#define TIDEWELL_BASE_FILE_H

#include "base/error_code.h"
#include "base/owned.h"

namespace tidewell {

// Reads `count` bytes at the current position. The system's error, or 38 when there are fewer.
ErrorCode ReadWhole(HANDLE file, void* buffer, DWORD count);

// Writes `count` bytes at the current position. The system's error, or 39 when fewer were taken.
ErrorCode WriteWhole(HANDLE file, const void* buffer, DWORD count);

// Closes a file that was written to. The system's error: some file systems tell only now that they could not
// keep everything.
ErrorCode CloseWritten(OwnedFile& file);

}  // namespace tidewell

#endif
