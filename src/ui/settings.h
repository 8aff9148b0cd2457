// The product's settings in the registry: of the user, or of the computer.
#ifndef TIDEWELL_UI_SETTINGS_H
#define TIDEWELL_UI_SETTINGS_H

#include <windows.h>

namespace tidewell {

// Reads a value, whatever its type, into `buffer` of `size` bytes. 1, or 0 with the registry's result as the
// last error: 2 when there is none, 234 when it does not fit with its NUL.
BOOL ReadSettingString(BOOL perUser, const char* name, char* buffer, DWORD size);

// The same for the path of a folder that exists; 0 with an empty text for any other.
BOOL ReadSettingFolder(BOOL perUser, const char* name, char* buffer, DWORD size);

// 1, or 0 with the registry's result as the last error.
BOOL WriteSettingString(BOOL perUser, const char* name, const char* text);

// A number of the computer's settings; `fallback` when there is none of four bytes.
DWORD ReadSettingDword(const char* name, DWORD fallback);

}  // namespace tidewell

#endif
