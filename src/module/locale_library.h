// The library of translated texts that this computer's users want.
#ifndef TIDEWELL_MODULE_LOCALE_LIBRARY_H
#define TIDEWELL_MODULE_LOCALE_LIBRARY_H

#include <windows.h>

namespace tidewell {

// Loads the library whose path is the value "TIDEWELL.DLL" of the registry key "LocaleDlls" of this computer.
// Null when there is no such value or it cannot be loaded. It stays loaded as long as the process.
HINSTANCE LoadLocaleLibrary();

}  // namespace tidewell

#endif
