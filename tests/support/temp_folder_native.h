// A folder of the machine that lives as long as a test.
#ifndef TIDEWELL_TESTS_SUPPORT_TEMP_FOLDER_NATIVE_H
#define TIDEWELL_TESTS_SUPPORT_TEMP_FOLDER_NATIVE_H

#include "support/host_folder.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

struct TempFolder : HostFolder {
    TempFolder() : HostFolder(pc::nativeHost(), made()) {}
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path(), ignored);
    }
    static std::string made() {
        std::string name = (std::filesystem::temp_directory_path() / "tidewell-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test: " + name);
        return std::filesystem::canonical(name).string();
    }
};

#endif
