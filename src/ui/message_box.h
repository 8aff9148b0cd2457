// Message boxes whose text is in the message table. Each returns the button that was pressed, or -1 when no
// box could be shown, or the thread is asked to quit, which closes it; a failure is never told in any other
// way.
#ifndef TIDEWELL_UI_MESSAGE_BOX_H
#define TIDEWELL_UI_MESSAGE_BOX_H

#include "base/error_code.h"

#include <windows.h>

#include <cstdarg>

namespace tidewell {

// In place of a title's number: the title of the owner window, which has to have one.
constexpr int kOwnersTitle = -1;

// Shows a message and a title of `module`. `inserts`: what replaces %1, %2, ..., each of the type that its
// format in the message says. Without an owner, kOwnersTitle fails with ERROR_INVALID_PARAMETER.
int ShowMessage(HINSTANCE module, HWND owner, DWORD messageId, int titleId, UINT style, va_list* inserts);

// The same from ResourceModule, with the inserts as further arguments.
int MessageBoxFromTable(HWND owner, DWORD messageId, int titleId, UINT style, ...);

// Shows a message of ResourceModule about an operation that failed: %1 becomes the system's text of
// `errorCode` (its number where the text would need inserts), %%1, %%2, ... become the further arguments. An
// error that the system does not know is not shown. `titleId` is a string's number.
int ShowErrorMessage(HWND owner, ErrorCode errorCode, DWORD messageId, int titleId, UINT style, ...);

}  // namespace tidewell

#endif
