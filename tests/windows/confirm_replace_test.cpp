// The question before a file is replaced, as the user sees and answers it.
#include "ui/confirm_replace.h"

#include "support/modal_windows.h"
#include "support/real_mac_file.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <functional>
#include <map>
#include <string>

using namespace tidewell;

namespace {

// Shows the question and lets `answer` act in it.
int ask(const char* path, BOOL several, const std::function<void(HWND)>& answer) {
    const ModalDriver driver(answer);
    const int result = ConfirmFileReplace(nullptr, path, several);
    CHECK(driver.shown() == 1);
    return result;
}

// By their places from the left edge of the label. A button that is not offered can neither be seen nor
// pressed.
std::map<LONG, std::string> offeredButtons(HWND dialog) {
    std::map<LONG, std::string> buttons;
    RECT label = {};
    GetWindowRect(GetDlgItem(dialog, IDC_REPLACE_NAME), &label);
    for (const int button : {IDYES, IDYESTOALL, IDNO, IDCANCEL}) {
        HWND const control = GetDlgItem(dialog, button);
        CHECK(IsWindowVisible(control) == IsWindowEnabled(control));
        RECT place = {};
        GetWindowRect(control, &place);
        if (IsWindowVisible(control)) buttons[place.left - label.left] = windowText(control);
    }
    return buttons;
}

}  // namespace

TEST_CASE_FIXTURE(ModuleState, "The question for several files offers all answers, for one Yes and No") {
    const RealFile file("Quarterly Report.bin", "old");
    std::map<LONG, std::string> four;
    for (const int answer : {IDYES, IDYESTOALL, IDNO, IDCANCEL}) {
        CHECK(ask(file.path(), TRUE, [&](HWND dialog) {
                  CHECK(windowText(dialog) == "Confirm File Replace");
                  CHECK(labelTexts(dialog) ==
                        "This folder already contains a file named 'Quarterly Report.bin'.|"
                        "Would you like to replace the existing file?");
                  four = offeredButtons(dialog);
                  std::string texts;
                  for (const auto& button : four)
                      texts += "[" + button.second + "]";
                  CHECK(texts == "[&Yes][Yes to &All][&No][Cancel]");
                  CHECK(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)) == IDYES);
                  CHECK(GetFocus() == GetDlgItem(dialog, IDYES));
                  takeScreenshot(dialog, "REPLACE_SEVERAL");
                  press(dialog, answer);
              }) == answer);
    }
    REQUIRE(four.size() == 4);
    const std::map<LONG, std::string> two = {{std::prev(four.end(), 2)->first, "&Yes"},
                                             {std::prev(four.end())->first, "&No"}};
    for (const int answer : {IDYES, IDNO}) {
        CHECK(ask(file.path(), FALSE, [&](HWND dialog) {
                  CHECK((offeredButtons(dialog) == two));
                  takeScreenshot(dialog, "REPLACE_SINGLE");
                  press(dialog, answer);
              }) == answer);
    }
}

TEST_CASE_FIXTURE(ModuleState, "Escape and closing cancel the question in both forms, Enter says Yes") {
    const RealFile file("KEYS.TXT", "old");
    struct {
        const char* name;
        void (*act)(HWND dialog);
        int answer;
    } const ways[] = {
        {"Escape", [](HWND) { typeKey(GetFocus(), VK_ESCAPE); }, IDCANCEL},
        {"Escape outside the buttons", [](HWND dialog) { typeKey(dialog, VK_ESCAPE); }, IDCANCEL},
        {"Escape on No",
         [](HWND dialog) {
             SetFocus(GetDlgItem(dialog, IDNO));
             typeKey(GetFocus(), VK_ESCAPE);
         },
         IDCANCEL},
        {"close", [](HWND dialog) { PostMessageA(dialog, WM_CLOSE, 0, 0); }, IDCANCEL},
        {"Enter", [](HWND) { typeKey(GetFocus(), VK_RETURN); }, IDYES},
        {"letter", [](HWND) { PostMessageA(GetFocus(), WM_CHAR, 'n', 0); }, IDNO},
    };
    for (const auto& way : ways) {
        CAPTURE(way.name);
        CHECK(ask(file.path(), TRUE, way.act) == way.answer);
        CHECK(ask(file.path(), FALSE, way.act) == way.answer);
    }
}

TEST_CASE_FIXTURE(ModuleState, "The question names the file as it is stored, however long") {
    const std::string longName = std::string(40, 'W') + " & " + std::string(120, 'i') + "%1.hqx";
    const RealFile file(longName.c_str(), "old");
    std::string asked = longName;
    asked[0] = 'w';
    ask(asked.c_str(), TRUE, [&](HWND dialog) {
        CHECK(windowText(GetDlgItem(dialog, IDC_REPLACE_NAME)) ==
              "This folder already contains a file named '" + longName + "'.");
        takeScreenshot(dialog, "REPLACE_LONG");
        press(dialog, IDNO);
    });
}

TEST_CASE_FIXTURE(ModuleState,
                  "A file that is not there needs no question; one that cannot be shown gives -1") {
    const ModalDriver driver([](HWND window) { EndDialog(window, IDCANCEL); });
    CHECK(ConfirmFileReplace(nullptr, "MISSING.TXT", TRUE) == IDYES);
    const RealFile file("NOASK.TXT", "old");
    InitializeModuleState(GetModuleHandleA("comctl32.dll"));
    CHECK(ConfirmFileReplace(nullptr, file.path(), TRUE) == -1);
    CHECK(driver.shown() == 0);
}
