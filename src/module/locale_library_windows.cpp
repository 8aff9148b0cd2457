#include "module/locale_library.h"

#include "base/file.h"
#include "base/registry_key.h"
#include "module/settings_key.h"

namespace tidewell {

HINSTANCE LoadLocaleLibrary() {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, TIDEWELL_SETTINGS_KEY "\\LocaleDlls", 0, KEY_READ, &opened) != 0)
        return nullptr;
    const RegistryKey key(opened);
    char path[kPathCapacity];
    if (QueryRegistryText(key, "TIDEWELL.DLL", path, sizeof path) != 0) return nullptr;
    return LoadLibraryA(path);
}

}  // namespace tidewell
