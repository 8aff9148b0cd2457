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

// Finds out what only Windows itself can tell, where a program needs it; null for what is not so anyway.
struct SystemFacts {
    bool (*hasDoubleByteCharacters)() = nullptr;
    HINSTANCE (*loadLocaleLibrary)() = nullptr;  // whose resources are used; null for the instance's own
    bool (*isAdministrator)() = nullptr;         // asked on NT only
};

// Fixes the facts above, in this order: the instance, the characters, the locale library, the platform, the
// administrator. Called once, before anything else of the library: by the library when it is loaded, and by
// programs that have its code in them, which find no use for more than their own resources.
void InitializeModuleState(HINSTANCE instance, const SystemFacts& facts = {});

}  // namespace tidewell

#endif
