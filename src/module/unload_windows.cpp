#include "module/unload.h"

#include "module/module_state.h"

STDAPI DllCanUnloadNow() {
    return tidewell::ModuleLockCount == 0 ? S_OK : S_FALSE;
}

DWORD WINAPI UninstInitialize() {
    return 0;
}

DWORD WINAPI UninstUnInitialize() {
    HWND const window = FindWindowA("TDSHELLCLASS", "TDSHELL");
    if (window) PostThreadMessageA(GetWindowThreadProcessId(window, nullptr), WM_QUIT, 0, 0);
    return 0;
}
