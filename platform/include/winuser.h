// The user-interface calls that window-less code makes: only the string table.
#ifndef TIDEWELL_PLATFORM_WINUSER_H
#define TIDEWELL_PLATFORM_WINUSER_H

#include <windef.h>

#define IDOK 1
#define IDCANCEL 2
#define IDYES 6
#define IDNO 7

extern "C" {
int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int capacity);
}

#endif
