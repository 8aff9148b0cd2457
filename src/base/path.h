// Operations on paths in the ANSI code page. Every search walks the text character by character, so that the
// second byte of a double-byte character is never taken for a backslash, a colon or a period.
#ifndef TIDEWELL_BASE_PATH_H
#define TIDEWELL_BASE_PATH_H

#include "base/file.h"

namespace tidewell {

// Joins `dir`, which must not be empty, and `name` with a backslash where one is needed (none after a
// backslash, none before a stream's colon). `out` may be `dir` itself. Returns the size of the result with
// its terminating NUL; when that exceeds `capacity` nothing is written.
DWORD JoinPath(char* out, DWORD capacity, const char* dir, const char* name);

// The path into a buffer of kPathCapacity bytes, cut where it does not fit.
void CopyPath(char* out, const char* path);

// Whether the path begins with a drive's letter and colon.
bool HasDrive(const char* path);

// What follows the last backslash, else the last colon, else `path` itself.
const char* FileNamePart(const char* path);

// From the last period of the file name on; the terminating NUL when it has none.
const char* FileExtension(const char* path);

// The 8.3 form of `path` into `out`. Returns its length; the size needed when `capacity` is too small; 0 with
// the last error when it fails, as for a file that does not exist. When `out` is `path` itself, the path
// stays as it is and its length is returned.
DWORD GetShortPath(const char* path, char* out, DWORD capacity);

// The size of an existing file, in bytes. The system's error when it cannot be opened or measured.
ErrorCode GetSizeByPath(const char* path, uint64_t& size);

// The low 32 bits of an existing file's size, in bytes. 0 for a file that cannot be opened or measured; for
// an empty one the last error is as the size query left it.
DWORD GetFileSizeByPath(const char* path);

}  // namespace tidewell

#endif
