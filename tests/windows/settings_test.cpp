// Settings in the real registry.
#include "ui/settings.h"

#include "support/registry_value_windows.h"
#include "support/replaced_import_windows.h"

#include <doctest/doctest.h>

#include <string>
#include <utility>

using namespace tidewell;

namespace {

LSTATUS WINAPI setValue(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* bytes, DWORD size) {
    static const auto real = systemFunction<decltype(&RegSetValueExA)>("advapi32.dll", "RegSetValueExA");
    CHECK(reserved == 0);
    // Newer systems add a NUL that is missing, Windows 95 does not.
    if (type == REG_SZ) CHECK(bytes[size - 1] == '\0');
    return real(key, name, reserved, type, bytes, size);
}

}  // namespace

REPLACE_IMPORT(RegSetValueExA, 24, setValue);

TEST_CASE("A setting is written with its NUL and read back, the user's apart from the computer's") {
    const RegistryValue user(HKEY_CURRENT_USER, "", "TestFolder");
    const RegistryValue computer(HKEY_LOCAL_MACHINE, "", "TestFolder");
    CHECK(WriteSettingString(FALSE, "TestFolder", "computer"));
    char text[520] = "x";
    SetLastError(0);
    CHECK_FALSE(ReadSettingString(TRUE, "TestFolder", text, sizeof text));
    CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);

    CHECK(WriteSettingString(TRUE, "TestFolder", "C:\\Mac files") == 1);
    CHECK(user.text() == std::string("C:\\Mac files") + '\0');
    CHECK(ReadSettingString(TRUE, "TestFolder", text, 13) == 1);
    CHECK(std::string(text) == "C:\\Mac files");
    CHECK_FALSE(ReadSettingString(TRUE, "TestFolder", text, 12));
    CHECK(GetLastError() == ERROR_MORE_DATA);

    CHECK(ReadSettingString(FALSE, "TestFolder", text, sizeof text));
    CHECK(std::string(text) == "computer");

    const std::string tooLong(20000, 'n');
    SetLastError(0);
    CHECK_FALSE(WriteSettingString(TRUE, tooLong.c_str(), "text"));
    CHECK(GetLastError() != 0);
}

TEST_CASE("A text without its NUL is never read past its end") {
    const RegistryValue value(HKEY_LOCAL_MACHINE, "", "TestText");
    value.set(REG_BINARY, "four");
    char text[6] = "?????";
    CHECK(ReadSettingString(FALSE, "TestText", text, sizeof text));
    CHECK(std::string(text) == "four");
    CHECK_FALSE(ReadSettingString(FALSE, "TestText", text, 4));
    CHECK_FALSE(ReadSettingString(FALSE, "TestText", text, 0));
}

TEST_CASE("A folder setting counts only while the folder exists") {
    const RegistryValue value(HKEY_CURRENT_USER, "", "TestFolder");
    char text[520] = "x";
    char windowsFolder[MAX_PATH];
    GetWindowsDirectoryA(windowsFolder, sizeof windowsFolder);
    for (const std::string& path :
         {std::string(windowsFolder) + "\\system.ini", std::string("C:\\missing")}) {
        CHECK(WriteSettingString(TRUE, "TestFolder", path.c_str()));
        CHECK_FALSE(ReadSettingFolder(TRUE, "TestFolder", text, sizeof text));
        CHECK(std::string(text).empty());
    }
    CHECK(WriteSettingString(TRUE, "TestFolder", windowsFolder));
    CHECK(ReadSettingFolder(TRUE, "TestFolder", text, sizeof text) == 1);
    CHECK(std::string(text) == windowsFolder);
    char untouched = 'x';
    CHECK_FALSE(ReadSettingFolder(TRUE, "TestFolder", &untouched, 0));
    CHECK(untouched == 'x');
}

TEST_CASE("A number setting is what is stored in four bytes, else what the caller says") {
    const RegistryValue value(HKEY_LOCAL_MACHINE, "", "TestNumber");
    CHECK(ReadSettingDword("TestNumber", 5) == 5);
    const std::pair<std::string, DWORD> rows[] = {
        {std::string("\x07\0\0\x80", 4), 0x80000007}, {"\x01\x02", 5}, {"12345", 5}};
    for (const auto& [bytes, number] : rows) {
        value.set(REG_DWORD, bytes);
        CHECK(ReadSettingDword("TestNumber", 5) == number);
    }
}
