// The status of an operation: a Windows error code, 0 for success, returned by value.
#ifndef TIDEWELL_BASE_ERROR_CODE_H
#define TIDEWELL_BASE_ERROR_CODE_H

#include <windows.h>

namespace tidewell {

using ErrorCode = DWORD;

// The thread's last error after a call that failed, or `fallback` when the call left none: a failure is
// never reported as 0.
inline ErrorCode lastErrorOr(ErrorCode fallback) {
    const DWORD error = GetLastError();
    return error != 0 ? error : fallback;
}

inline ErrorCode lastError() {
    return lastErrorOr(ERROR_GEN_FAILURE);
}

// For operations in the style of the system calls: leaves `error` as the thread's last error, returns 0.
inline BOOL failWith(ErrorCode error) {
    SetLastError(error);
    return 0;
}

}  // namespace tidewell

#endif
