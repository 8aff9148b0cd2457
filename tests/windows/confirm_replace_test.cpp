// The question before a file is replaced, as the user sees and answers it.
#include "ui/confirm_replace.h"

#include "module/module_state.h"
#include "support/modal_windows.h"
#include "support/real_mac_file.h"

#include <doctest/doctest.h>

#include <fstream>
#include <functional>
#include <string>

using namespace tidewell;

namespace {

struct ModuleState {
    ModuleState() { InitializeModuleState(GetModuleHandleA(nullptr)); }
};

class ExistingFile : public RealFile {
  public:
    explicit ExistingFile(const char* name) : RealFile(name) { std::ofstream(name) << "old"; }
};

// Shows the question and lets `answer` act in it.
int ask(const char* path, BOOL several, const std::function<void(HWND)>& answer) {
    const ModalDriver driver(answer);
    const int result = ConfirmFileReplace(nullptr, path, several);
    CHECK(driver.shown() == 1);
    return result;
}

int leftOf(HWND dialog, int control) {
    RECT place = {};
    GetWindowRect(GetDlgItem(dialog, control), &place);
    return place.left;
}

bool offers(HWND dialog, int button) {
    HWND const control = GetDlgItem(dialog, button);
    REQUIRE(control != nullptr);
    return IsWindowVisible(control) && IsWindowEnabled(control);
}

void typeKey(HWND window, WPARAM key) {
    PostMessageA(window, WM_KEYDOWN, key, 0);
    PostMessageA(window, WM_KEYUP, key, 0);
}

}  // namespace

TEST_CASE_FIXTURE(ModuleState, "A file that does not exist needs no question") {
    const ModalDriver driver([](HWND window) { EndDialog(window, IDCANCEL); });
    CHECK(ConfirmFileReplace(nullptr, "MISSING.TXT", TRUE) == IDYES);
    CHECK(driver.shown() == 0);
}

TEST_CASE_FIXTURE(ModuleState, "The question for several files offers all answers, from left to right") {
    const ExistingFile file("Quarterly Report.bin");
    const int order[] = {IDYES, IDYESTOALL, IDNO, IDCANCEL};
    for (const int answer : order) {
        CHECK(ask(file.path(), TRUE, [&](HWND dialog) {
                  CHECK(windowText(dialog) == "Confirm File Replace");
                  CHECK(windowText(GetDlgItem(dialog, IDC_REPLACE_NAME)) ==
                        "This folder already contains a file named 'Quarterly Report.bin'.");
                  CHECK(childWithText(dialog, "Would you like to replace the existing file?") != nullptr);
                  for (size_t i = 0; i < std::size(order); ++i) {
                      CHECK(offers(dialog, order[i]));
                      if (i > 0) CHECK(leftOf(dialog, order[i - 1]) < leftOf(dialog, order[i]));
                  }
                  CHECK(windowText(GetDlgItem(dialog, IDYES)) == "&Yes");
                  CHECK(windowText(GetDlgItem(dialog, IDYESTOALL)) == "Yes to &All");
                  CHECK(windowText(GetDlgItem(dialog, IDNO)) == "&No");
                  CHECK(windowText(GetDlgItem(dialog, IDCANCEL)) == "Cancel");
                  CHECK(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)) == IDYES);
                  CHECK(GetFocus() == GetDlgItem(dialog, IDYES));
                  if (answer == IDYES) takeScreenshot(dialog, "REPLACE_SEVERAL");
                  press(dialog, answer);
              }) == answer);
    }
}

TEST_CASE_FIXTURE(ModuleState, "The question for one file offers Yes and No, in the places on the right") {
    const ExistingFile file("SINGLE.TXT");
    int places[2] = {};
    ask(file.path(), TRUE, [&](HWND dialog) {
        places[0] = leftOf(dialog, IDNO) - leftOf(dialog, IDC_REPLACE_NAME);
        places[1] = leftOf(dialog, IDCANCEL) - leftOf(dialog, IDC_REPLACE_NAME);
        press(dialog, IDNO);
    });
    for (const int answer : {IDYES, IDNO}) {
        CHECK(ask(file.path(), FALSE, [&](HWND dialog) {
                  CHECK(offers(dialog, IDYES));
                  CHECK(offers(dialog, IDNO));
                  CHECK_FALSE(IsWindowVisible(GetDlgItem(dialog, IDCANCEL)));
                  CHECK_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDCANCEL)));
                  CHECK_FALSE(IsWindowVisible(GetDlgItem(dialog, IDYESTOALL)));
                  CHECK_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDYESTOALL)));
                  CHECK(leftOf(dialog, IDYES) - leftOf(dialog, IDC_REPLACE_NAME) == places[0]);
                  CHECK(leftOf(dialog, IDNO) - leftOf(dialog, IDC_REPLACE_NAME) == places[1]);
                  if (answer == IDYES) takeScreenshot(dialog, "REPLACE_SINGLE");
                  press(dialog, answer);
              }) == answer);
    }
}

TEST_CASE_FIXTURE(ModuleState, "Escape and closing cancel the question in both forms, Enter says Yes") {
    const ExistingFile file("KEYS.TXT");
    for (const BOOL several : {FALSE, TRUE}) {
        CAPTURE(several);
        CHECK(ask(file.path(), several, [](HWND) { typeKey(GetFocus(), VK_ESCAPE); }) == IDCANCEL);
        CHECK(ask(file.path(), several, [](HWND dialog) { typeKey(dialog, VK_ESCAPE); }) == IDCANCEL);
        CHECK(ask(file.path(), several, [](HWND dialog) {
                  SetFocus(GetDlgItem(dialog, IDNO));
                  typeKey(GetFocus(), VK_ESCAPE);
              }) == IDCANCEL);
        CHECK(ask(file.path(), several, [](HWND dialog) { PostMessageA(dialog, WM_CLOSE, 0, 0); }) ==
              IDCANCEL);
        CHECK(ask(file.path(), several, [](HWND) { typeKey(GetFocus(), VK_RETURN); }) == IDYES);
        CHECK(ask(file.path(), several, [](HWND) { PostMessageA(GetFocus(), WM_CHAR, 'n', 0); }) == IDNO);
    }
}

TEST_CASE_FIXTURE(ModuleState, "The question names the file as it is stored, however long") {
    const std::string longName = std::string(40, 'W') + " & " + std::string(120, 'i') + "%1.hqx";
    const ExistingFile file(longName.c_str());
    std::string asked = longName;
    asked[0] = 'w';
    ask(asked.c_str(), TRUE, [&](HWND dialog) {
        CHECK(windowText(GetDlgItem(dialog, IDC_REPLACE_NAME)) ==
              "This folder already contains a file named '" + longName + "'.");
        takeScreenshot(dialog, "REPLACE_LONG");
        press(dialog, IDNO);
    });
}

TEST_CASE_FIXTURE(ModuleState, "A question that cannot be shown gives -1") {
    const ExistingFile file("NOASK.TXT");
    InitializeModuleState(GetModuleHandleA("comctl32.dll"));
    CHECK(ConfirmFileReplace(nullptr, file.path(), TRUE) == -1);
}
