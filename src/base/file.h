// Files by path and by handle, with no half answers: a transfer cut short is an error with its code.
#ifndef TIDEWELL_BASE_FILE_H
#define TIDEWELL_BASE_FILE_H

#include "base/error_code.h"
#include "base/owned.h"

#include <cstdint>

namespace tidewell {

// The size of every path buffer, in bytes.
constexpr DWORD kPathCapacity = 520;

// Whether an error of looking at a path says that there is nothing: no such file, folder, drive, server or
// share, no disk in the drive, none that any file system knows, no network, or no path at all.
bool MeansNothingThere(ErrorCode error);

// False when there is nothing at `path` that could be lost. A file that cannot be looked at, for a reason
// that does not mean that nothing is there, may be there.
bool MayExist(const char* path);

// Whether there is a folder at `path`. False, too, when that cannot be told.
bool IsFolder(const char* path);

// Opens an existing file for reading, which others may read, too, and no one write to.
ErrorCode OpenForReading(const char* path, OwnedFile& file);

// The size of an open file, in bytes.
ErrorCode GetSizeOf(HANDLE file, uint64_t& size);

// Goes to a byte of the file, for reading and writing. The system's error.
ErrorCode SeekTo(HANDLE file, uint64_t position);

// Reads `count` bytes at the current position. The system's error, or ERROR_HANDLE_EOF when there are fewer.
ErrorCode ReadWhole(HANDLE file, void* buffer, DWORD count);

// Writes `count` bytes at the current position. The system's error, or ERROR_HANDLE_DISK_FULL when fewer were
// taken.
ErrorCode WriteWhole(HANDLE file, const void* buffer, DWORD count);

// WriteWhole for more bytes than one call takes.
ErrorCode WriteAll(HANDLE file, const void* buffer, uint64_t count);

// Has the system put on the disk what was written. The system's error, but none for a driver that knows no
// such request: the file is whole, and nothing more can be done for it.
ErrorCode FlushWritten(HANDLE file);

// Closes a file that was written to. The system's error: some file systems tell only now that they could not
// keep everything.
ErrorCode CloseWritten(OwnedFile& file);

}  // namespace tidewell

#endif
