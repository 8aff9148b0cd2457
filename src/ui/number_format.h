// Numbers and sizes as the user's locale writes them.
#ifndef TIDEWELL_UI_NUMBER_FORMAT_H
#define TIDEWELL_UI_NUMBER_FORMAT_H

#include <windows.h>

#include <cstdint>

namespace tidewell {

// Writes a whole number with the locale's separators. Returns the formatter's result: the count of bytes
// written with the NUL, 0 with the last error when it fails.
int FormatNumber(int32_t value, char* buffer, int bufferSize);

// Writes a count of bytes, with `withUnit` in the unit that suits it and one decimal ("1.5MB"), else in
// bytes ("1,572,864 bytes"). Returns the text's length; when `buffer` is null or too small nothing is
// written, and the size needed with the NUL is returned.
DWORD FormatSize(uint64_t value, char* buffer, DWORD bufferSize, BOOL withUnit);

// Shows a count of bytes in a control, in both forms when they differ: "1.5MB (1,572,864 bytes)". Returns
// the set call's result.
BOOL SetDlgItemSize(HWND dialog, int controlId, uint64_t value);

}  // namespace tidewell

#endif
