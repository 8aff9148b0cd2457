// Texts of the string table, at their full length.
#ifndef TIDEWELL_UI_STRINGS_H
#define TIDEWELL_UI_STRINGS_H

#include "base/local_memory.h"

namespace tidewell {

// A number with its unit, or the template of one.
constexpr size_t kShortTextCapacity = 128;

// What wsprintfA writes at most, and its NUL.
constexpr size_t kPrintedCapacity = 1025;

// The string of `module`, never cut. The caller frees it with LocalFree. Null when there is no such string,
// when it is empty, or without memory.
char* LoadStringAlloc(HINSTANCE module, UINT stringId);

// A string of ResourceModule with bars between its entries, as a list: each entry ends with a NUL, and at
// least one empty entry follows the last. The caller frees it with LocalFree; null as above.
char* LoadStringList(UINT stringId);

// These set a text of ResourceModule. They return the set call's result, 0 when there is no such string.
BOOL SetWindowTextFromString(HWND window, UINT stringId);
BOOL SetDlgItemTextFromString(HWND dialog, int controlId, UINT stringId);

// Replaces the inserts (%1, %2, ...) in a control's text: each further argument is for one of them, of the
// type that its format says, a text without one. 1 when the text was replaced, else 0 with the last error.
BOOL FormatWindowText(HWND dialog, int controlId, ...);

}  // namespace tidewell

#endif
