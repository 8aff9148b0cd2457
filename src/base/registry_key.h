// An open key of the registry.
#ifndef TIDEWELL_BASE_REGISTRY_KEY_H
#define TIDEWELL_BASE_REGISTRY_KEY_H

#include "base/error_code.h"
#include "base/owned.h"

namespace tidewell {

struct RegistryKeyTraits {
    using Value = HKEY;
    static Value none() noexcept { return nullptr; }
    static void close(Value key) noexcept { RegCloseKey(key); }
};
using RegistryKey = Owned<RegistryKeyTraits>;

// Reads a value as it is stored, whatever its type, into `buffer` of `size` bytes and closes it with a NUL
// where there is room. `stored` receives the number of bytes that the value has. Returns the registry's
// result; ERROR_MORE_DATA when the value is larger than the buffer.
inline ErrorCode QueryRegistryValue(const RegistryKey& key, const char* name, void* buffer, DWORD size,
                                    DWORD* stored) {
    *stored = size;
    const auto result = static_cast<ErrorCode>(
        RegQueryValueExA(key.get(), name, nullptr, nullptr, static_cast<BYTE*>(buffer), stored));
    if (result == 0 && *stored < size) static_cast<BYTE*>(buffer)[*stored] = 0;
    return result;
}

// The same for a text. Whoever wrote it may have left its NUL out: a text that fills the buffer without one
// gives ERROR_MORE_DATA too.
inline ErrorCode QueryRegistryText(const RegistryKey& key, const char* name, char* buffer, DWORD size) {
    DWORD stored = 0;
    const ErrorCode result = QueryRegistryValue(key, name, buffer, size, &stored);
    if (result != 0) return result;
    if (size == 0 || (stored == size && buffer[size - 1] != '\0')) return ERROR_MORE_DATA;
    return 0;
}

}  // namespace tidewell

#endif
