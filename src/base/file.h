// Files by path and by handle, with no half answers: a transfer cut short is an error with its code.
#ifndef TIDEWELL_BASE_FILE_H
#define TIDEWELL_BASE_FILE_H

#include "base/error_code.h"
#include "base/owned.h"

namespace tidewell {

// The size of every path buffer, in bytes.
constexpr DWORD kPathCapacity = 520;

// False only when there is surely nothing at `path`: a file that cannot be looked at may be there.
bool MayExist(const char* path);

// Reads `count` bytes at the current position. The system's error, or 38 when there are fewer.
ErrorCode ReadWhole(HANDLE file, void* buffer, DWORD count);

// Writes `count` bytes at the current position. The system's error, or 39 when fewer were taken.
ErrorCode WriteWhole(HANDLE file, const void* buffer, DWORD count);

// Closes a file that was written to. The system's error: some file systems tell only now that they could not
// keep everything.
ErrorCode CloseWritten(OwnedFile& file);

}  // namespace tidewell

#endif
