// Strings, and texts of windows made from them.
#include "ui/strings.h"

#include "messages.h"
#include "res/resource.h"
#include "support/local_allocations_windows.h"
#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"
#include "support/test_module_windows.h"
#include "support/test_pc.h"
#include "ui/message_box.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <utility>

using namespace tidewell;

namespace {

// A module whose every string is `onlyString`.
HINSTANCE const kOneString = reinterpret_cast<HINSTANCE>(UINT_PTR{0x1230000});
std::string onlyString;
// How much of the buffer it leaves free when it is cut: one byte more where half a character finds no room.
size_t leftByCut = 1;

int WINAPI loadString(HINSTANCE module, UINT id, LPSTR buffer, int size) {
    static const auto real = systemFunction<decltype(&LoadStringA)>("user32.dll", "LoadStringA");
    if (module != kOneString) return real(module, id, buffer, size);
    REQUIRE(size > 2);
    const auto capacity = static_cast<size_t>(size);
    const size_t length = onlyString.size() < capacity ? onlyString.size() : capacity - leftByCut;
    std::memcpy(buffer, onlyString.data(), length);
    buffer[length] = '\0';
    return static_cast<int>(length);
}

std::string stringOf(HINSTANCE module, UINT id) {
    const LocalText text(LoadStringAlloc(module, id));
    return text ? text.get() : "(none)";
}

// The entries of a list up to its first empty one.
std::string entriesOf(UINT id) {
    const LocalText list(LoadStringList(id));
    std::string entries;
    for (const char* entry = list.get(); *entry != '\0'; entry += std::strlen(entry) + 1)
        entries += "[" + std::string(entry) + "]";
    return entries;
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

REPLACE_IMPORT(LoadStringA, 16, loadString);

TEST_CASE_FIXTURE(ModuleState, "Strings come whole, however long, and missing ones not at all") {
    CHECK(stringOf(ResourceModule, IDS_TITLE) == "Tidewell 98");
    CHECK(stringOf(ResourceModule, 10) == "(none)");
    CHECK(LoadStringList(10) == nullptr);
    for (const size_t length : {1, 252, 253, 254, 255, 256, 257, 510, 511, 512, 3000}) {
        for (leftByCut = 1; leftByCut <= 2; ++leftByCut) {
            onlyString = std::string(length - 1, 'x') + "y";
            CHECK(stringOf(kOneString, 1) == onlyString);
        }
    }
}

TEST_CASE_FIXTURE(ModuleState, "A list is split at its bars, but not within a double-byte character") {
    CHECK(entriesOf(IDS_SIZE_UNITS) == "[ byte][ bytes][KB][KB][MB][MB][GB][GB]");
    // Two of its bars are second bytes of characters.
    onlyString = "\x83|a|b\x81\x83|\x83||c||d";
    ResourceModule = kOneString;
    CHECK(entriesOf(1) == "[\x83][a][b\x81\x83][\x83]");
    TestPc pc;
    pc.setCodePage(932);
    ResourceModule = kOneString;
    CHECK(entriesOf(1) == "[\x83|a][b\x81\x83][\x83|][c]");
    // A list that fills its buffer has its end all the same.
    leftByCut = 1;
    onlyString = std::string(252, 'x') + "|";
    CHECK(entriesOf(1) == "[" + std::string(252, 'x') + "]");
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
    // A text that is no template, none at all, and one that is long.
    for (const char* const text : {"%1!q", ""}) {
        SetWindowTextA(window.label, text);
        CHECK_FALSE(FormatWindowText(window, 7, "x"));
        CHECK(windowText(window.label) == text);
    }
    const std::string name(1500, 'n');
    SetWindowTextA(window.label, "%1");
    CHECK(FormatWindowText(window, 7, name.c_str()));
    CHECK(windowText(window.label) == name);
}

TEST_CASE_FIXTURE(ModuleState, "A time remaining may be long in another language") {
    ProgressDialog* const progress = ProgressCreate(ResourceModule, "progress", nullptr, FALSE);
    REQUIRE(progress != nullptr);
    const uint64_t total = UINT64_MAX;
    ProgressSetTotal(progress, &total);
    ProgressAdvance(progress, 1);
    progress->clock = 0;
    progress->instance = kOneString;
    onlyString = std::string(124, 'x') + " %d";
    SendMessageA(ProgressWindow(progress), WM_TIMER, 1, 0);
    const std::string text = windowText(GetDlgItem(ProgressWindow(progress), IDC_PROGRESS_TIME));
    CHECK(text == std::string(124, 'x') + " 2147483647");
    ProgressDestroy(progress);
}

TEST_CASE_FIXTURE(ModuleState, "Without memory there is no string, no text is set, and no box is shown") {
    const LabelWindow window("'%1'");
    onlyString = std::string(300, 'x');
    const auto fails = [](int allocation, auto call) {
        failingAllocation = allocation;
        return call() && std::exchange(failingAllocation, 0) == 0;
    };
    for (const int allocation : {1, 2})
        CHECK(fails(allocation, [] { return LoadStringAlloc(kOneString, 1) == nullptr; }));
    CHECK(fails(1, [] { return LoadStringList(IDS_SIZE_UNITS) == nullptr; }));
    // A string that has the first buffer's room needs no second.
    onlyString.resize(253);
    failingAllocation = 2;
    CHECK(stringOf(kOneString, 1) == onlyString);
    CHECK(fails(1, [&] { return !SetWindowTextFromString(window.label, IDS_CLOSE); }));
    CHECK(fails(1, [&] { return !FormatWindowText(window, 7, "x"); }));
    CHECK(GetLastError() == ERROR_NOT_ENOUGH_MEMORY);
    CHECK(windowText(window.label) == "'%1'");
    CHECK(fails(1, [&] { return MessageBoxFromTable(window, MSG_FORMAT_NONE, kOwnersTitle, MB_OK) == -1; }));
    for (const int allocation : {1, 2}) {
        CHECK(fails(allocation, [&] {
            return ShowErrorMessage(window, ERROR_CRC, MSG_SAVE_FAILED, IDS_TITLE, MB_OK) == -1;
        }));
    }
}
