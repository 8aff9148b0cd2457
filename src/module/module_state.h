// Facts about the process, fixed when the library is loaded and only read afterwards.
#ifndef TIDEWELL_MODULE_MODULE_STATE_H
#define TIDEWELL_MODULE_MODULE_STATE_H

#include <windows.h>

namespace tidewell {

extern HINSTANCE ModuleInstance;  // the library itself: icons
extern HINSTANCE ResourceModule;  // the module that strings, messages, menus and most dialogs come from
extern bool RunningOnNt;          // the system is of the Windows NT platform

// Called once, before anything else of the library.
void InitializeModuleState(HINSTANCE instance);

}  // namespace tidewell

#endif
