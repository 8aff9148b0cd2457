// Native builds: the messages of the library's message table.
#ifndef TIDEWELL_PLATFORM_KERNEL_MODULE_MESSAGE_H
#define TIDEWELL_PLATFORM_KERNEL_MODULE_MESSAGE_H

#include <windows.h>

#include <string>

namespace kernel {

// The message up to its %0, with its inserts: %1 to %9, all of them texts. Returns 0 or
// ERROR_MR_MID_NOT_FOUND.
DWORD formatModuleMessage(DWORD id, const char* const* inserts, std::string& text);

}  // namespace kernel

#endif
