// What others call when they want the library gone.
#ifndef TIDEWELL_MODULE_UNLOAD_H
#define TIDEWELL_MODULE_UNLOAD_H

#include <windows.h>

extern "C" {

// S_OK when nothing of the library is in use, else S_FALSE.
// NOLINTNEXTLINE(readability-redundant-declaration): the system declares it, too
STDAPI DllCanUnloadNow();

// Called by the product's uninstaller, before and after its work. The first has nothing to do; the second
// asks the thread of the product's own window, when there is one, to quit. Both return 0.
DWORD WINAPI UninstInitialize();
DWORD WINAPI UninstUnInitialize();
}

#endif
