// A value of the product's registry keys: not there at first, and removed when the object goes.
#ifndef TIDEWELL_TESTS_SUPPORT_REGISTRY_VALUE_H
#define TIDEWELL_TESTS_SUPPORT_REGISTRY_VALUE_H

#include <windows.h>

#include <doctest/doctest.h>

#include <string>

class RegistryValue {
  public:
    // `key`: below the product's key, with a backslash before it; empty for that itself.
    RegistryValue(HKEY root, const std::string& key, const char* name) : name_(name) {
        const std::string path = "Software\\Brinefield Software\\Tidewell\\CurrentVersion" + key;
        REQUIRE(RegCreateKeyA(root, path.c_str(), &key_) == 0);
        // A run that was stopped has left it there.
        RegDeleteValueA(key_, name);
    }
    ~RegistryValue() {
        RegDeleteValueA(key_, name_);
        RegCloseKey(key_);
    }
    RegistryValue(const RegistryValue&) = delete;
    RegistryValue& operator=(const RegistryValue&) = delete;

    void set(DWORD type, const std::string& bytes) const {
        CHECK(RegSetValueExA(key_, name_, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                             static_cast<DWORD>(bytes.size())) == 0);
    }
    // The bytes of a text, with the NUL when it has one; of any other type, none.
    std::string text() const {
        BYTE bytes[2000];
        DWORD size = sizeof bytes;
        DWORD type = REG_NONE;
        RegQueryValueExA(key_, name_, nullptr, &type, bytes, &size);
        return type == REG_SZ ? std::string(reinterpret_cast<const char*>(bytes), size) : "";
    }

  private:
    HKEY key_ = nullptr;
    const char* name_;
};

#endif
