// System calls that the test program answers itself.
#ifndef TIDEWELL_TESTS_SUPPORT_REPLACED_IMPORT_H
#define TIDEWELL_TESTS_SUPPORT_REPLACED_IMPORT_H

#include <windows.h>

// Every call of `name` in the program becomes one of `function`, which has its signature. What is defined
// here is the pointer through which the program calls the system; the linker then does not import it.
// `stackBytes`: of the arguments, in a 32-bit program.
#ifdef _WIN64
#define REPLACE_IMPORT(name, stackBytes, function) DEFINE_IMPORT(name, "__imp_" #name, function)
#else
#define REPLACE_IMPORT(name, stackBytes, function) \
    DEFINE_IMPORT(name, "__imp__" #name "@" #stackBytes, function)
#endif
#define DEFINE_IMPORT(name, symbol, function)                  \
    extern "C" decltype(&name) const import##name asm(symbol); \
    decltype(&name) const import##name = function

// The system's own function, for what the test leaves to it.
template <typename Function>
Function systemFunction(const char* module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(module), name)));
}

#endif
