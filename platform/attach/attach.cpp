// Puts a PC under the library in a Windows test program. The program defines the pointers through which the
// library's code calls the system; the linker then never takes them from the system's import libraries, and
// the product needs no seam for it. What is not the PC's goes on to the real system, but never a device.
#include "kernel/kernel.h"
#include "pc/pc.h"
#include "pc/system_lock.h"

#include <shlobj.h>

namespace {

// The system's own functions, from the modules that export them.
FARPROC systemFunction(const char* name) {
    for (const char* module : {"kernel32.dll", "shell32.dll"}) {
        if (FARPROC const function = GetProcAddress(LoadLibraryA(module), name)) return function;
    }
    return nullptr;
}

// Which calls a PC answers, by their kinds in the list.
template <typename... Rest>
bool answersPATH(LPCSTR path, Rest...) {
    return kernel::ownsPath(path);
}

template <typename... Rest>
bool answersWPATH(LPCWSTR path, Rest...) {
    return kernel::ownsPath(path);
}

template <typename... Rest>
bool answersHANDLE(HANDLE handle, Rest...) {
    return kernel::ownsHandle(handle);
}

template <typename... Arguments>
bool answersSYSTEM(Arguments...) {
    return pc::Pc::current() != nullptr;
}

// The PC's own code pages are converted by Windows, under their numbers.
template <typename... Rest>
bool answersTEXT(UINT codePage, Rest...) {
    return codePage == CP_ACP && pc::Pc::current() != nullptr;
}

// Memory goes back to where it came from, whatever PC there is by then.
bool answersPAGES(const void* pages, SIZE_T, DWORD) {
    return kernel::ownsMemory(pages);
}

bool answersHEAP(HANDLE, DWORD, const void* memory) {
    return kernel::ownsMemory(memory);
}

}  // namespace

#define PC_CALL(kind, result, name, stackBytes, parameters, arguments)                                    \
    static result WINAPI attached_##name parameters {                                                     \
        {                                                                                                 \
            const pc::SystemLock lock;                                                                    \
            if (answers##kind arguments) return kernel::name arguments;                                   \
        }                                                                                                 \
        static const auto real =                                                                          \
            reinterpret_cast<result(WINAPI*) parameters>(reinterpret_cast<void*>(systemFunction(#name))); \
        return real arguments;                                                                            \
    }
#include "../include/win32_calls.inc"
#undef PC_CALL

#ifdef __x86_64__
#define IMPORT_POINTER(name, stackBytes) "__imp_" #name
#else
#define IMPORT_POINTER(name, stackBytes) "__imp__" #name "@" #stackBytes
#endif

#define PC_CALL(kind, result, name, stackBytes, parameters, arguments)                               \
    extern "C" result(WINAPI* const import_##name) parameters asm(IMPORT_POINTER(name, stackBytes)); \
    result(WINAPI* const import_##name) parameters = attached_##name;
#include "../include/win32_calls.inc"
#undef PC_CALL
