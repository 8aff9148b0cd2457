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
    DoubleByteCharacters = facts.hasDoubleByteCharacters && facts.hasDoubleByteCharacters();
    const HINSTANCE localeLibrary = facts.loadLocaleLibrary ? facts.loadLocaleLibrary() : nullptr;
    ResourceModule = localeLibrary ? localeLibrary : instance;
    RunningOnNt = isNtPlatform();
    UserIsAdmin = RunningOnNt && facts.isAdministrator && facts.isAdministrator();
}

}  // namespace tidewell
