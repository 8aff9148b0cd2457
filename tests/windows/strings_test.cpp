// Strings, and texts of windows made from them.
#include "ui/strings.h"

#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <string>

using namespace tidewell;

namespace {

std::string stringOf(UINT id) {
    const LocalText text(LoadStringAlloc(ResourceModule, id));
    return text ? text.get() : "(none)";
}

// A label in a window, which finds it by the number 7.
struct LabelWindow : TestWindow {
    explicit LabelWindow(const char* text)
        : TestWindow("window"),
          label(CreateWindowExA(0, "STATIC", text, WS_CHILD, 0, 0, 50, 50, *this,
                                reinterpret_cast<HMENU>(UINT_PTR{7}), nullptr, nullptr)) {}
    HWND const label;
};

}  // namespace

TEST_CASE_FIXTURE(ModuleState, "Strings come whole or split at their bars, missing ones not at all") {
    CHECK(stringOf(IDS_TITLE) == "Tidewell 98");
    CHECK(stringOf(10) == "(none)");
    CHECK(stringOf(60000) == "(none)");
    CHECK(stringOf(IDS_RESOURCE_FILTER) == "Binary Resource Data|*.*|Hex Resource Data (*.txt)|*.txt||");
    const LocalText list(LoadStringList(IDS_SIZE_UNITS));
    const char split[] = " byte\0 bytes\0KB\0KB\0MB\0MB\0GB\0GB\0";
    CHECK(std::string(list.get(), sizeof split) == std::string(split, sizeof split));
    CHECK(LoadStringList(10) == nullptr);
    CHECK(stringOf(2004) == "3\xBD floppy formatting code");
    CHECK(stringOf(2047) == "PostScript\xAE resource");
    CHECK(stringOf(2033) == "Large (32 x 32) black & white icon with mask");
}

TEST_CASE_FIXTURE(ModuleState,
                  "Texts of windows are set from strings, and their inserts are replaced, once") {
    const LabelWindow window("'%1' in %2!C!: %3!d! times");
    CHECK(FormatWindowText(window, 7, "100%1 & more", 'A', -5));
    CHECK(windowText(window.label) == "'100%1 & more' in A: -5 times");
    CHECK(SetWindowTextFromString(window.label, IDS_VERIFYING));
    CHECK(windowText(window.label) == "Verifying...");
    CHECK(SetDlgItemTextFromString(window, 7, IDS_CLOSE));
    CHECK_FALSE(SetWindowTextFromString(window.label, 10));
    CHECK_FALSE(SetDlgItemTextFromString(window, 7, 10));
    CHECK_FALSE(SetDlgItemTextFromString(window, 8, IDS_CLOSE));
    CHECK_FALSE(FormatWindowText(window, 8, "x"));
    CHECK(windowText(window.label) == "&Close");

    const LabelWindow longOne("'%1'");
    const std::string name(1500, 'n');
    CHECK(FormatWindowText(longOne, 7, name.c_str()));
    CHECK(windowText(longOne.label) == "'" + name + "'");
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
