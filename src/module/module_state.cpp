#include "module/module_state.h"

namespace tidewell {

HINSTANCE ModuleInstance = nullptr;
HINSTANCE ResourceModule = nullptr;
bool RunningOnNt = false;
bool UserIsAdmin = false;
bool DoubleByteCharacters = false;

volatile LONG ModuleLockCount = 0;

namespace {

bool isNtPlatform() {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

}  // namespace

void InitializeModuleState(HINSTANCE instance, const SystemFacts& facts) {
    ModuleInstance = instance;
    ResourceModule = facts.localeLibrary ? facts.localeLibrary : instance;
    RunningOnNt = isNtPlatform();
    UserIsAdmin = RunningOnNt && facts.userIsAdmin;
    DoubleByteCharacters = facts.doubleByteCharacters;
}

}  // namespace tidewell
