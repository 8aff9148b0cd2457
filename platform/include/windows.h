// The subset of Win32 that the library's window-less code uses, for builds where there is no Windows.
// Same names, same contracts; platform/kernel implements it.
#ifndef TIDEWELL_PLATFORM_WINDOWS_H
#define TIDEWELL_PLATFORM_WINDOWS_H

#include <windef.h>
#include <winerror.h>
#include <winbase.h>
#include <winuser.h>

#endif
