// What the system calls when a process loads the library.
#include "module/system_facts.h"
#include "ui/user_windows.h"

// Nothing is done on detach: other threads' code may still run, and the process gives everything back.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        DisableThreadLibraryCalls(instance);
        tidewell::InitializeModuleState(instance, tidewell::WindowsFacts);
        tidewell::SetUser(&tidewell::WindowsUser);
    }
    return TRUE;
}
