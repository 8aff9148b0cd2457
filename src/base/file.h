// Files by path and by handle, with no half answers: a transfer cut short is an error with its code.
#ifndef TIDEWELL_BASE_FILE_H
#define TIDEWELL_BASE_FILE_H

#include "base/error_code.h"
#include "base/owned.h"

#include <cstdint>

namespace tidewell {

// The size of every path buffer, in bytes.
constexpr DWORD kPathCapacity = 520;

// False when there is nothing at `path` that could be lost: no such file, folder, drive or share, no disk in
// the drive, or no path at all. A file that cannot be looked at for another reason may be there.
bool MayExist(const char* path);

// Opens an existing file for reading, which others may read, too, and no one write to.
ErrorCode OpenForReading(const char* path, OwnedFile& file);

// The size of an open file, in bytes.
ErrorCode GetSizeOf(HANDLE file, uint64_t& size);

// Reads `count` bytes at the current position. The system's error, or ERROR_HANDLE_EOF when there are fewer.
ErrorCode ReadWhole(HANDLE file, void* buffer, DWORD count);

// Writes `count` bytes at the current position. The system's error, or ERROR_HANDLE_DISK_FULL when fewer were
// taken.
ErrorCode WriteWhole(HANDLE file, const void* buffer, DWORD count);

// Closes a file that was written to. The system's error: some file systems tell only now that they could not
// keep everything.
ErrorCode CloseWritten(OwnedFile& file);

}  // namespace tidewell

#endif
