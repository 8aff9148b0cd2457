#include "module/module_state.h"

namespace tidewell {

HINSTANCE ModuleInstance = nullptr;
HINSTANCE ResourceModule = nullptr;
bool RunningOnNt = false;

namespace {

bool isNtPlatform() {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

}  // namespace

void InitializeModuleState(HINSTANCE instance) {
    ModuleInstance = instance;
    ResourceModule = instance;
    RunningOnNt = isNtPlatform();
}

}  // namespace tidewell
