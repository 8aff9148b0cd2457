// Another language: the example library, named in the registry.
#include "module/attach.h"

#include "messages.h"
#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/module_resources_windows.h"
#include "support/registry_value_windows.h"
#include "ui/message_box.h"
#include "ui/strings.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <string>

using namespace tidewell;

namespace {

std::string besideProgram(const char* name) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string program = path;
    return program.substr(0, program.rfind('\\') + 1) + name;
}

// The value that names a library of texts, and the state as it was before.
struct NamedLibrary {
    RegistryValue value{HKEY_LOCAL_MACHINE, "LocaleDlls", "TIDEWELL.DLL"};
    ~NamedLibrary() { InitializeModuleState(GetModuleHandleA(nullptr)); }

    void name(const std::string& path) const { value.set(REG_SZ, path + '\0'); }
};

std::string titleString() {
    const LocalText text(LoadStringAlloc(ResourceModule, IDS_ERROR_TITLE));
    return text ? text.get() : "";
}

class LoadedLibrary {
  public:
    explicit LoadedLibrary(const char* name) : module_(LoadLibraryA(besideProgram(name).c_str())) {
        REQUIRE(module_ != nullptr);
    }
    ~LoadedLibrary() { FreeLibrary(module_); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    operator HMODULE() const { return module_; }

  private:
    HMODULE module_;
};

std::vector<std::string> sortedInserts(const std::string& text) {
    std::vector<std::string> inserts = insertsOf(text);
    std::sort(inserts.begin(), inserts.end());
    return inserts;
}

}  // namespace

// First: a library of texts stays loaded.
TEST_CASE("A library of texts that is not there leaves the library's own texts in use") {
    const NamedLibrary named;
    HMODULE const self = GetModuleHandleA(nullptr);
    AttachModule(self);
    CHECK(ResourceModule == self);
    for (const std::string& path : {besideProgram("MISSING.DLL"), std::string(), std::string(600, 'x')}) {
        CAPTURE(path);
        named.name(path);
        AttachModule(self);
        CHECK(ResourceModule == self);
        CHECK(titleString() == "Tidewell 98 Error");
    }
    const LoadedLibrary library("TIDEWELL.DLL");
    CHECK(GetModuleHandleA("TIDEWELL_DE.DLL") == nullptr);
}

TEST_CASE("With a library of texts every text is its own") {
    const NamedLibrary named;
    named.name(besideProgram("TIDEWELL_DE.DLL"));
    HMODULE const self = GetModuleHandleA(nullptr);
    AttachModule(self);
    CHECK(ModuleInstance == self);
    CHECK(ResourceModule == GetModuleHandleA("TIDEWELL_DE.DLL"));
    CHECK(titleString() == "Tidewell 98 - Fehler");

    std::string title;
    std::string text;
    const ModalDriver driver([&](HWND window) {
        title = windowText(window);
        text = labelText(window);
        takeScreenshot(window, "GERMAN");
        press(window, IDCANCEL);
    });
    CHECK(ShowErrorMessage(nullptr, ERROR_DISK_FULL, MSG_EXTRACT_FAILED, IDS_ERROR_TITLE,
                           MB_RETRYCANCEL | MB_ICONEXCLAMATION, "Brief.hqx", "C:\\Mac") == IDCANCEL);
    CHECK(driver.shown() == 1);
    CHECK(title == "Tidewell 98 - Fehler");
    CHECK(text.find("Die Mac-Datei aus 'Brief.hqx' kann nicht in 'C:\\Mac' wiederhergestellt werden: ") == 0);
}

TEST_CASE("TIDEWELL.DLL takes the library of texts when it is loaded") {
    const NamedLibrary named;
    // Under a name of its own, since a library stays loaded.
    const std::string copy = besideProgram("LOCALE2.DLL");
    CHECK(CopyFileA(besideProgram("TIDEWELL_DE.DLL").c_str(), copy.c_str(), FALSE));
    named.name(copy);
    CHECK(GetModuleHandleA("LOCALE2.DLL") == nullptr);
    {
        const LoadedLibrary library("TIDEWELL.DLL");
        CHECK(GetModuleHandleA("LOCALE2.DLL") != nullptr);
    }
    HMODULE const kept = GetModuleHandleA("LOCALE2.DLL");
    CHECK(kept != nullptr);
    if (kept) FreeLibrary(kept);
    DeleteFileA(copy.c_str());
}

TEST_CASE("The example has every string, message, menu and dialog of the library") {
    const LoadedLibrary english("TIDEWELL.DLL");
    const LoadedLibrary german("TIDEWELL_DE.DLL");

    const auto germanStrings = stringsOf(german);
    const auto englishStrings = stringsOf(english);
    CHECK(englishStrings.size() == germanStrings.size());
    CHECK(englishStrings.size() > 150);
    for (const auto& [id, text] : englishStrings) {
        CAPTURE(id);
        REQUIRE(germanStrings.count(id) == 1);
        const std::string& translated = germanStrings.at(id);
        CHECK(std::count(text.begin(), text.end(), '|') ==
              std::count(translated.begin(), translated.end(), '|'));
        CHECK(insertsOf(text) == insertsOf(translated));
    }

    const auto germanMessages = messagesOf(german);
    const auto englishMessages = messagesOf(english);
    CHECK(englishMessages.size() == germanMessages.size());
    for (const auto& [id, text] : englishMessages) {
        CAPTURE(id);
        REQUIRE(germanMessages.count(id) == 1);
        CHECK(sortedInserts(text) == sortedInserts(germanMessages.at(id)));
        CHECK(text.rfind("%0\r\n") == text.size() - 4);
    }

    for (const std::string& menu : namesOf(english, RT_MENU))
        CHECK(FindResourceA(german, menu.c_str(), RT_MENU) != nullptr);
    // These two are always the library's own.
    for (const std::string& dialog : namesOf(english, RT_DIALOG)) {
        CAPTURE(dialog);
        const bool own = dialog == "FILEPROGRESS" || dialog == "#1014";
        CHECK((FindResourceA(german, dialog.c_str(), RT_DIALOG) == nullptr) == own);
    }
}

TEST_CASE("Messages have the identifiers that other programs know them by") {
    const LoadedLibrary library("TIDEWELL.DLL");
    const DWORD expected[] = {
        0x20000003, 0x2000000E, 0x60000002, 0x60000014, 0x6000001A, 0x6000001B, 0x6000001D,
        0x60000022, 0x60000025, 0x60000026, 0x60000027, 0x60000028, 0x6000002B, 0x6000002C,
        0xA0000005, 0xA0000008, 0xA000000C, 0xA000000F, 0xA0000010, 0xA0000011, 0xA0000012,
        0xA0000013, 0xA0000024, 0xA000002D, 0xA000002E, 0xE0000004, 0xE0000007, 0xE0000009,
        0xE000000A, 0xE0000015, 0xE0000016, 0xE0000018, 0xE0000019, 0xE000001C, 0xE000001E,
        0xE000001F, 0xE0000020, 0xE0000021, 0xE0000023, 0xE0000029, 0xE000002F,
    };
    std::vector<DWORD> found;
    for (const auto& message : messagesOf(library))
        found.push_back(message.first);
    CHECK(found == std::vector<DWORD>(std::begin(expected), std::end(expected)));
}
