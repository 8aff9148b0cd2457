// Strings, and texts of windows made from them.
#include "ui/strings.h"

#include "module/module_state.h"
#include "res/resource.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace tidewell;

namespace {

struct ModuleState {
    ModuleState() { InitializeModuleState(GetModuleHandleA(nullptr)); }
};

std::string stringOf(UINT id) {
    const LocalText text(LoadStringAlloc(ResourceModule, id));
    return text ? text.get() : "(none)";
}

std::vector<std::string> listOf(UINT id) {
    const LocalText list(LoadStringList(id));
    REQUIRE(list);
    std::vector<std::string> entries;
    for (const char* entry = list.get(); *entry; entry += entries.back().size() + 1)
        entries.emplace_back(entry);
    return entries;
}

// A label in a window, which finds it by its number.
class Label {
  public:
    explicit Label(const char* text)
        : window_(
              CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr)),
          label_(CreateWindowExA(0, "STATIC", text, WS_CHILD, 0, 0, 50, 50, window_,
                                 reinterpret_cast<HMENU>(UINT_PTR{7}), nullptr, nullptr)) {}
    ~Label() { DestroyWindow(window_); }
    Label(const Label&) = delete;
    Label& operator=(const Label&) = delete;

    HWND window() const { return window_; }
    HWND label() const { return label_; }
    std::string text() const {
        char text[2000];
        GetWindowTextA(label_, text, sizeof text);
        return text;
    }

  private:
    HWND window_;
    HWND label_;
};

}  // namespace

TEST_CASE_FIXTURE(ModuleState, "Strings come whole, missing ones not at all") {
    CHECK(stringOf(IDS_TITLE) == "Tidewell 98");
    CHECK(stringOf(10) == "(none)");
    CHECK(stringOf(60000) == "(none)");
    CHECK(stringOf(IDS_SIZE_UNITS) == " byte| bytes|KB|KB|MB|MB|GB|GB");
    CHECK(stringOf(2004) == "3\xBD floppy formatting code");
    CHECK(stringOf(2047) == "PostScript\xAE resource");
    CHECK(stringOf(2033) == "Large (32 x 32) black & white icon with mask");
}

TEST_CASE_FIXTURE(ModuleState, "A list is split at its bars") {
    CHECK(listOf(IDS_SIZE_UNITS) ==
          std::vector<std::string>{" byte", " bytes", "KB", "KB", "MB", "MB", "GB", "GB"});
    CHECK(listOf(IDS_RESOURCE_FILTER) ==
          std::vector<std::string>{"Binary Resource Data", "*.*", "Hex Resource Data (*.txt)", "*.txt"});
    CHECK(LoadStringList(10) == nullptr);
}

TEST_CASE_FIXTURE(ModuleState, "Strings are set as texts of windows and controls") {
    const Label label("old");
    CHECK(SetWindowTextFromString(label.label(), IDS_VERIFYING));
    CHECK(label.text() == "Verifying...");
    CHECK(SetDlgItemTextFromString(label.window(), 7, IDS_CLOSE));
    CHECK(label.text() == "&Close");
    CHECK_FALSE(SetWindowTextFromString(label.label(), 10));
    CHECK_FALSE(SetDlgItemTextFromString(label.window(), 7, 10));
    CHECK(label.text() == "&Close");
    CHECK_FALSE(SetDlgItemTextFromString(label.window(), 8, IDS_CLOSE));
}

TEST_CASE_FIXTURE(ModuleState, "The inserts in a control's text are replaced, once") {
    const Label label("'%1' in %2!C!: %3!d! times");
    CHECK(FormatWindowText(label.window(), 7, "100%1 & more", 'A', -5));
    CHECK(label.text() == "'100%1 & more' in A: -5 times");
    const Label longOne("'%1'");
    const std::string name(1500, 'n');
    CHECK(FormatWindowText(longOne.window(), 7, name.c_str()));
    CHECK(longOne.text() == "'" + name + "'");
    CHECK_FALSE(FormatWindowText(longOne.window(), 8, "x"));
}

// The product has no string this long, another language may.
TEST_CASE("A string longer than the first buffer is not cut") {
    HMODULE const module = GetModuleHandleA("shell32.dll");
    size_t longest = 0;
    for (UINT id = 0; id < 1000; ++id) {
        char buffer[8000];
        const int length = LoadStringA(module, id, buffer, sizeof buffer);
        const LocalText text(LoadStringAlloc(module, id));
        CHECK((text ? std::string(text.get()) : std::string()) ==
              std::string(buffer, static_cast<size_t>(length)));
        if (static_cast<size_t>(length) > longest) longest = static_cast<size_t>(length);
    }
    CHECK(longest > 256);
}
