// The common dialogs' part of the subset: the title of a file.
#ifndef TIDEWELL_PLATFORM_COMMDLG_H
#define TIDEWELL_PLATFORM_COMMDLG_H

#include <windows.h>

extern "C" {
// The file's name with its extension: there is no user's setting to hide it. 0; negative for a path that
// names no file; the size needed, with the NUL, when `capacity` is too small.
short WINAPI GetFileTitleA(LPCSTR path, LPSTR title, WORD capacity);
}

#endif
