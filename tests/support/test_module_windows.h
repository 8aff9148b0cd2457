// The library as tests have it: built into the test program, and built as libraries beside it.
#ifndef TIDEWELL_TESTS_SUPPORT_TEST_MODULE_H
#define TIDEWELL_TESTS_SUPPORT_TEST_MODULE_H

#include "module/module_state.h"
#include "support/user_in_charge.h"
#include "ui/user_windows.h"

#include <string>

// The library in the program that has its code and resources in it, as in a process that has loaded it: with
// its module state, and windows for the user.
struct ModuleState {
    ModuleState() { tidewell::InitializeModuleState(GetModuleHandleA(nullptr)); }
    const UserInCharge user{&tidewell::WindowsUser};
};

// The path of a file that is beside the program.
std::string besideProgram(const char* name);

// A library built with the program.
class LoadedLibrary {
  public:
    explicit LoadedLibrary(const char* name = "TIDEWELL.DLL");
    ~LoadedLibrary() { FreeLibrary(module_); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    operator HMODULE() const { return module_; }

  private:
    HMODULE module_;
};

#endif
