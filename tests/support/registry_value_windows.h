// A value of the product's registry keys, and its removal when the object goes.
#ifndef TIDEWELL_TESTS_SUPPORT_REGISTRY_VALUE_H
#define TIDEWELL_TESTS_SUPPORT_REGISTRY_VALUE_H

#include <windows.h>

#include <string>

class RegistryValue {
  public:
    // Not there at first. `key`: below the product's key, empty for that itself.
    RegistryValue(HKEY root, const char* key, const char* name);
    ~RegistryValue();
    RegistryValue(const RegistryValue&) = delete;
    RegistryValue& operator=(const RegistryValue&) = delete;

    void set(DWORD type, const std::string& bytes) const;
    // The stored bytes and their type; type REG_NONE when there is no such value.
    struct Stored {
        DWORD type;
        std::string bytes;
    };
    Stored get() const;

  private:
    HKEY root_;
    std::string key_;
    std::string name_;
};

#endif
