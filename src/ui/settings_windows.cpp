#include "ui/settings.h"

#include "base/file.h"
#include "base/registry_key.h"
#include "module/settings_key.h"

namespace tidewell {

namespace {

constexpr char kSettingsKey[] = TIDEWELL_SETTINGS_KEY;

HKEY rootOf(BOOL perUser) {
    return perUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

ErrorCode openSettings(BOOL perUser, REGSAM access, RegistryKey& key) {
    HKEY opened = nullptr;
    const LONG result = RegOpenKeyExA(rootOf(perUser), kSettingsKey, 0, access, &opened);
    if (result == 0) key = RegistryKey(opened);
    return static_cast<ErrorCode>(result);
}

ErrorCode read(BOOL perUser, const char* name, char* buffer, DWORD size) {
    RegistryKey key;
    const ErrorCode result = openSettings(perUser, KEY_QUERY_VALUE, key);
    return result == 0 ? QueryRegistryText(key, name, buffer, size) : result;
}

ErrorCode write(BOOL perUser, const char* name, const char* text) {
    HKEY created = nullptr;
    const LONG result = RegCreateKeyExA(rootOf(perUser), kSettingsKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                        KEY_WRITE, nullptr, &created, nullptr);
    if (result != 0) return static_cast<ErrorCode>(result);
    const RegistryKey key(created);
    return static_cast<ErrorCode>(RegSetValueExA(key.get(), name, 0, REG_SZ,
                                                 reinterpret_cast<const BYTE*>(text),
                                                 static_cast<DWORD>(lstrlenA(text)) + 1));
}

}  // namespace

// The key is closed before the error is left: a call that succeeds may change it, too.
BOOL ReadSettingString(BOOL perUser, const char* name, char* buffer, DWORD size) {
    const ErrorCode result = read(perUser, name, buffer, size);
    return result == 0 ? 1 : failWith(result);
}

BOOL ReadSettingFolder(BOOL perUser, const char* name, char* buffer, DWORD size) {
    if (ReadSettingString(perUser, name, buffer, size) && IsFolder(buffer)) return 1;
    if (size != 0) *buffer = '\0';
    return 0;
}

BOOL WriteSettingString(BOOL perUser, const char* name, const char* text) {
    const ErrorCode result = write(perUser, name, text);
    return result == 0 ? 1 : failWith(result);
}

DWORD ReadSettingDword(const char* name, DWORD fallback) {
    RegistryKey key;
    ErrorCode result = openSettings(FALSE, KEY_READ, key);
    DWORD value = fallback;
    DWORD stored = sizeof value;
    if (result == 0) result = QueryRegistryValue(key, name, &value, sizeof value, &stored);
    return result == 0 && stored == sizeof value ? value : fallback;
}

}  // namespace tidewell
