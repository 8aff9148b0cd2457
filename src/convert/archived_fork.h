// The resource fork inside a MacBinary or BinHex file, without extracting the file.
#ifndef TIDEWELL_CONVERT_ARCHIVED_FORK_H
#define TIDEWELL_CONVERT_ARCHIVED_FORK_H

#include "macfile/fork_bytes.h"

namespace tidewell {

// Whether the path's extension is that of a MacBinary or BinHex file.
bool IsArchivePath(const char* path);

// Opens the resource fork that the MacBinary or BinHex file at `path` holds: a part of the open file, or what
// was decoded of it into memory. The errors are those of extracting the file: ERROR_INVALID_DATA for a file
// that is none by its contents or its extension, ERROR_CRC for one that is damaged up to the end of the fork,
// ERROR_HANDLE_EOF for one that is shorter than it says, ERROR_NOT_ENOUGH_MEMORY; else the system's. The
// fork may be empty.
ErrorCode OpenArchivedFork(const char* path, ForkBytes& fork);

}  // namespace tidewell

#endif
