#include "test_module_windows.h"

#include <doctest/doctest.h>

std::string besideProgram(const char* name) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string program = path;
    return program.substr(0, program.rfind('\\') + 1) + name;
}

LoadedLibrary::LoadedLibrary(const char* name) : module_(LoadLibraryA(besideProgram(name).c_str())) {
    REQUIRE_MESSAGE(module_ != nullptr, name << ": error " << GetLastError());
}
