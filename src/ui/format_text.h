// Texts with inserts, made by the system's message formatter. Each call gives a new text, or an empty owner
// with the last error set.
#ifndef TIDEWELL_UI_FORMAT_TEXT_H
#define TIDEWELL_UI_FORMAT_TEXT_H

#include "base/local_memory.h"

#include <cstdarg>

namespace tidewell {

// The pattern with its inserts, each of the type that its format says.
LocalText FormatText(const char* pattern, va_list* inserts);

// The same with a message of the module's message table.
LocalText FormatModuleMessage(HINSTANCE module, DWORD messageId, va_list* inserts);

// A message with one insert, a text.
LocalText FormatModuleMessageWithText(HINSTANCE module, DWORD messageId, const char* insert);

// The system's text of an error, which ends its line. A text that needs inserts fails with
// ERROR_INVALID_PARAMETER.
LocalText FormatSystemError(DWORD errorCode);

}  // namespace tidewell

#endif
