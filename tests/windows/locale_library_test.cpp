// Another language: the example library, named in the registry.
#include "module/system_facts.h"

#include "messages.h"
#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/real_file.h"
#include "support/registry_value_windows.h"
#include "support/test_module_windows.h"
#include "ui/confirm_replace.h"
#include "ui/message_box.h"
#include "ui/number_format.h"
#include "ui/strings.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>

using namespace tidewell;

namespace {

// The value that names a library of texts, and the state as it was before.
struct NamedLibrary {
    RegistryValue value{HKEY_LOCAL_MACHINE, "\\LocaleDlls", "TIDEWELL.DLL"};
    HMODULE self = GetModuleHandleA(nullptr);
    ~NamedLibrary() { const ModuleState own; }

    void attach() const { InitializeModuleState(self, WindowsFacts); }
    void attach(const std::string& path) const {
        value.set(REG_SZ, path + '\0');
        attach();
    }
};

std::string stringOf(HMODULE module, UINT id) {
    char text[1000] = "";
    LoadStringA(module, id, text, sizeof text);
    return text;
}

// With its inserts.
std::string messageOf(HMODULE module, UINT id) {
    char text[1000] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_IGNORE_INSERTS, module, id, 0, text,
                   sizeof text, nullptr);
    return text;
}

// Such as "%1!C!" and "%%2", and what else begins with a percent sign; another language may change their
// order.
std::multiset<std::string> insertsOf(const std::string& text) {
    static const std::regex insert("%+.(![^!]*!)?");
    return {std::sregex_token_iterator(text.begin(), text.end(), insert), std::sregex_token_iterator()};
}

BOOL CALLBACK checkTranslated(HMODULE, LPCSTR type, LPSTR name, LONG_PTR german) {
    // The progress window and the question are always the library's own.
    const bool own =
        type == RT_DIALOG && (IS_INTRESOURCE(name) ? name == MAKEINTRESOURCEA(IDD_CONFIRM_REPLACE)
                                                   : name == std::string("FILEPROGRESS"));
    CHECK((FindResourceA(reinterpret_cast<HMODULE>(german), name, type) == nullptr) == own);
    return TRUE;
}

}  // namespace

// First: a library of texts stays loaded.
TEST_CASE_FIXTURE(NamedLibrary,
                  "Without a library of texts its own are in use; TIDEWELL.DLL takes one when it is loaded") {
    attach();
    CHECK(ResourceModule == self);
    for (const std::string& path : {besideProgram("MISSING.DLL"), std::string(), std::string(600, 'x')}) {
        CAPTURE(path);
        attach(path);
        CHECK(ResourceModule == self);
        CHECK(stringOf(ResourceModule, IDS_ERROR_TITLE) == "Tidewell 98 Error");
    }
    CHECK(GetModuleHandleA("TIDEWELL_DE.DLL") == nullptr);
    value.set(REG_SZ, besideProgram("TIDEWELL_DE.DLL") + '\0');
    const LoadedLibrary library;
    CHECK(GetModuleHandleA("TIDEWELL_DE.DLL") != nullptr);
}

TEST_CASE_FIXTURE(NamedLibrary, "With a library of texts every text is its own") {
    attach(besideProgram("TIDEWELL_DE.DLL"));
    CHECK(ModuleInstance == self);
    CHECK(ResourceModule == GetModuleHandleA("TIDEWELL_DE.DLL"));

    const TestWindow label("");
    CHECK(SetWindowTextFromString(label, IDS_CANCEL));
    CHECK(windowText(label) == "Abbrechen");
    char size[100] = "";
    FormatSize(5, size, sizeof size, FALSE);
    CHECK(std::string(size) == "5 Byte");

    std::string titles;
    const ModalDriver driver([&](HWND window) {
        titles += windowText(window) + "|" + labelTexts(window).substr(0, 30) + "|";
        press(window, IDNO);
    });
    const char name[] = "Brief.hqx";
    CHECK(MessageBoxFromTable(nullptr, MSG_CHANGE_READ_ONLY, IDS_CONFIRM_PROPERTIES, MB_YESNO, name) == IDNO);
    CHECK(ShowErrorMessage(nullptr, ERROR_DISK_FULL, MSG_EXTRACT_FAILED, IDS_ERROR_TITLE, MB_YESNO, name,
                           "C:\\Mac") == IDNO);
    // These only the library itself has.
    const UserInCharge user(&WindowsUser);
    const RealFile file("GERMAN.TXT", "old");
    CHECK(ConfirmFileReplace(nullptr, file.path(), TRUE) == IDNO);
    ProgressDialog* const progress = ProgressCreate(ModuleInstance, "progress", nullptr, TRUE);
    CHECK(progress != nullptr);
    ProgressDestroy(progress);
    CHECK(driver.shown() == 3);
    CHECK(titles ==
          "\xC4"
          "ndern der Dateieigenschaften best\xE4tigen|'Brief.hqx' ist schreibgesch\xFCt|"
          "Tidewell 98 - Fehler|Die Mac-Datei aus 'Brief.hqx' |"
          "Confirm File Replace|This folder already contains a|");
}

TEST_CASE("The example has every string, message, menu and dialog of the library") {
    const LoadedLibrary english;
    const LoadedLibrary german("TIDEWELL_DE.DLL");
    int texts = 0;
    const auto check = [&](UINT id, const std::string& text, const std::string& translated) {
        if (text.empty() && translated.empty()) return;
        CAPTURE(id);
        CHECK(text.empty() == translated.empty());
        CHECK(std::count(text.begin(), text.end(), '|') ==
              std::count(translated.begin(), translated.end(), '|'));
        CHECK((insertsOf(text) == insertsOf(translated)));
        CHECK((text.back() == '\n') == (translated.back() == '\n'));
        ++texts;
    };
    for (UINT id = 0; id <= 0xFFFF; ++id)
        check(id, stringOf(english, id), stringOf(german, id));
    CHECK(texts > 150);
    texts = 0;
    for (const UINT severity : {0x20000000u, 0x60000000u, 0xA0000000u, 0xE0000000u}) {
        for (UINT id = severity; id <= severity + 0xFF; ++id)
            check(id, messageOf(english, id), messageOf(german, id));
    }
    CHECK(texts == 41);

    for (const LPCSTR type : {RT_MENU, RT_DIALOG})
        CHECK(EnumResourceNamesA(english, type, checkTranslated,
                                 reinterpret_cast<LONG_PTR>(static_cast<HMODULE>(german))));
}
