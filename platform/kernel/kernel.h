// The Win32 calls of the library's subset, answered by the current PC. Native builds give them their Win32
// names; Windows test programs reach them through the attach layer.
#ifndef TIDEWELL_PLATFORM_KERNEL_KERNEL_H
#define TIDEWELL_PLATFORM_KERNEL_KERNEL_H

#include <windows.h>

namespace kernel {

#define PC_CALL(kind, result, name, stackBytes, parameters, arguments) result name parameters;
#include "../include/win32_calls.inc"
#undef PC_CALL

// Whether the PC answers for this path: one of its drives, a relative one when it has a current folder, or
// any device (so that none of the machine's own is ever reached).
bool ownsPath(LPCSTR path);
bool ownsPath(LPCWSTR path);
bool ownsHandle(HANDLE handle);
bool ownsMemory(const void* memory);

}  // namespace kernel

#endif
