// Moving the bytes of forks.
#ifndef TIDEWELL_CONVERT_FORK_COPY_H
#define TIDEWELL_CONVERT_FORK_COPY_H

#include "base/error_code.h"
#include "ui/progress.h"

namespace tidewell {

// Copies `length` bytes from the current position of `source` to that of `destination`, in blocks of 64 KiB.
// After each block the progress advances by it and is pumped; of all but the last, bytes behind the last
// whole page of the destination are written with the next. The system's error; ERROR_NOT_ENOUGH_MEMORY
// without memory, ERROR_HANDLE_EOF when the source ends early, ERROR_HANDLE_DISK_FULL for a short write,
// ERROR_CANCELLED when the user cancels. `progress` may be null.
ErrorCode CopyForkToFile(HANDLE source, HANDLE destination, DWORD length, ProgressDialog* progress);

// Writes `count` zero bytes at the current position, none for 0. The system's error; ERROR_NOT_ENOUGH_MEMORY
// without memory, ERROR_HANDLE_DISK_FULL for a short write.
ErrorCode WriteZeros(HANDLE file, DWORD count);

}  // namespace tidewell

#endif
