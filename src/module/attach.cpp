#include "module/attach.h"

#include "module/administrator.h"
#include "module/locale_library.h"

namespace tidewell {

void AttachModule(HINSTANCE instance) {
    ModuleInstance = instance;
    if (GetSystemMetrics(SM_DBCSENABLED)) DoubleByteCharacters = true;
    HINSTANCE const locale = LoadLocaleLibrary();
    ResourceModule = locale ? locale : instance;
    RunningOnNt = IsNtPlatform();
    // Windows 95 and 98 have no tokens to ask.
    if (RunningOnNt) UserIsAdmin = IsAdministrator();
}

}  // namespace tidewell
