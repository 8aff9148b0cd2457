#include "registry_value_windows.h"

#include <doctest/doctest.h>

namespace {

constexpr char kProductKey[] = "Software\\Brinefield Software\\Tidewell\\CurrentVersion";

}  // namespace

RegistryValue::RegistryValue(HKEY root, const char* key, const char* name)
    : root_(root), key_(std::string(kProductKey) + (*key ? "\\" : "") + key), name_(name) {
    REQUIRE_MESSAGE(get().type == REG_NONE, name << " has been left in the registry");
}

RegistryValue::~RegistryValue() {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root_, key_.c_str(), 0, KEY_WRITE, &key) != 0) return;
    RegDeleteValueA(key, name_.c_str());
    RegCloseKey(key);
}

void RegistryValue::set(DWORD type, const std::string& bytes) const {
    HKEY key = nullptr;
    REQUIRE(RegCreateKeyExA(root_, key_.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) == 0);
    CHECK(RegSetValueExA(key, name_.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size())) == 0);
    RegCloseKey(key);
}

RegistryValue::Stored RegistryValue::get() const {
    HKEY key = nullptr;
    Stored stored = {REG_NONE, {}};
    if (RegOpenKeyExA(root_, key_.c_str(), 0, KEY_READ, &key) != 0) return stored;
    char bytes[2000];
    DWORD size = sizeof bytes;
    if (RegQueryValueExA(key, name_.c_str(), nullptr, &stored.type, reinterpret_cast<BYTE*>(bytes), &size) ==
        0)
        stored.bytes.assign(bytes, size);
    else
        stored.type = REG_NONE;
    RegCloseKey(key);
    return stored;
}
