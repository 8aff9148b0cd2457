#include "module/module_state.h"

namespace tidewell {

HINSTANCE ModuleInstance = nullptr;
HINSTANCE ResourceModule = nullptr;
bool RunningOnNt = false;
bool UserIsAdmin = false;
bool DoubleByteCharacters = false;

volatile LONG ModuleLockCount = 0;

bool IsNtPlatform() {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

void InitializeModuleState(HINSTANCE instance) {
    ModuleInstance = instance;
    ResourceModule = instance;
    RunningOnNt = IsNtPlatform();
}

}  // namespace tidewell
