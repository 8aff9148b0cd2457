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

// What only Windows itself can tell, where a program needs it.
struct SystemFacts {
    HINSTANCE localeLibrary = nullptr;  // its resources are used instead of the instance's own
    bool userIsAdmin = false;
    bool doubleByteCharacters = false;
};

// Fixes the facts above. Called once, before anything else of the library: by the library when it is loaded,
// and by programs that have its code in them, which find no use for more than their own resources.
void InitializeModuleState(HINSTANCE instance, const SystemFacts& facts = {});

}  // namespace tidewell

#endif
