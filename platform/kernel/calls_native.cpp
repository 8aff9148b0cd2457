// Native builds: the Win32 names, for the library to link with.
#include "kernel.h"
#include "pc/system_lock.h"

extern "C" {

#define PC_CALL(kind, result, name, stackBytes, parameters, arguments) \
    result name parameters {                                           \
        const pc::SystemLock lock;                                     \
        return kernel::name arguments;                                 \
    }
#include "../include/win32_calls.inc"
#undef PC_CALL

static thread_local DWORD lastError;

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD error) {
    lastError = error;
}

HMODULE GetModuleHandleA(LPCSTR name) {
    static char program;
    if (name == nullptr) return reinterpret_cast<HMODULE>(&program);
    SetLastError(ERROR_FILE_NOT_FOUND);
    return nullptr;
}

HANDLE GetProcessHeap() {
    static char heap;
    return &heap;
}

}  // extern "C"
