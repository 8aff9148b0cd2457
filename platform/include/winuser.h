// What window-less code knows of the user interface: the string table, and a message box's style and answer.
#ifndef TIDEWELL_PLATFORM_WINUSER_H
#define TIDEWELL_PLATFORM_WINUSER_H

#include <windef.h>

#define MB_OK 0x00000000u
#define MB_OKCANCEL 0x00000001u
#define MB_RETRYCANCEL 0x00000005u
#define MB_ICONEXCLAMATION 0x00000030u

#define IDOK 1
#define IDCANCEL 2
#define IDRETRY 4
#define IDYES 6
#define IDNO 7

extern "C" {
int WINAPI LoadStringA(HINSTANCE module, UINT id, LPSTR buffer, int capacity);
}

#endif
