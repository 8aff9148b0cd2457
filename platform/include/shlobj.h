// The shell's part of the subset: the change notification.
#ifndef TIDEWELL_PLATFORM_SHLOBJ_H
#define TIDEWELL_PLATFORM_SHLOBJ_H

#include <windows.h>

#define SHCNE_CREATE 0x00000002
#define SHCNF_PATHA 0x0001u

#endif
