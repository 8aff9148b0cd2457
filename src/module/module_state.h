// Facts about the process, fixed when the library is loaded and only read afterwards; and the count of what
// keeps the library loaded.
#ifndef TIDEWELL_MODULE_MODULE_STATE_H
#define TIDEWELL_MODULE_MODULE_STATE_H

#include <windows.h>

namespace tidewell {

extern HINSTANCE ModuleInstance;   // the library itself: icons, and the question before a file is replaced
extern HINSTANCE ResourceModule;   // where strings, messages, menus and most dialogs come from
extern bool RunningOnNt;           // the system is of the Windows NT platform
extern bool UserIsAdmin;           // on NT: the user is one of the Administrators; false elsewhere
extern bool DoubleByteCharacters;  // the system uses a double-byte character set

// References on the library's objects, locks on its server and threads of its windows, together. Changed
// only by InterlockedIncrement and InterlockedDecrement, from any thread.
extern volatile LONG ModuleLockCount;

// Whether the system says that it is of the Windows NT platform.
bool IsNtPlatform();

// For programs that have the library's code in them instead of loading it. Called once, before anything else
// of the library. The resources are those of `instance`, whatever the registry says.
void InitializeModuleState(HINSTANCE instance);

}  // namespace tidewell

#endif
