// The question before a file is replaced, as the user sees and answers it.
#include "ui/confirm_replace.h"

#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/real_file.h"
#include "support/replaced_import_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>

using namespace tidewell;

namespace {

// Shows the question and lets `answer` act in it.
int ask(HWND owner, const char* path, BOOL several, const std::function<void(HWND)>& answer) {
    const ModalDriver driver(answer);
    const int result = ConfirmFileReplace(owner, path, several);
    CHECK(driver.shown() == 1);
    return result;
}

RECT placeIn(HWND dialog, int control) {
    RECT place = frameOf(GetDlgItem(dialog, control));
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// How many properties the windows have that were not taken away again.
int propertiesHeld = 0;

BOOL WINAPI setProperty(HWND window, LPCSTR name, HANDLE value) {
    ++propertiesHeld;
    return systemFunction<decltype(&SetPropA)>("user32.dll", "SetPropA")(window, name, value);
}

HANDLE WINAPI removeProperty(HWND window, LPCSTR name) {
    --propertiesHeld;
    return systemFunction<decltype(&RemovePropA)>("user32.dll", "RemovePropA")(window, name);
}

// How many device contexts were taken and not given back.
int contextsHeld = 0;

HDC WINAPI getContext(HWND window) {
    ++contextsHeld;
    return systemFunction<decltype(&GetDC)>("user32.dll", "GetDC")(window);
}

int WINAPI releaseContext(HWND window, HDC context) {
    --contextsHeld;
    return systemFunction<decltype(&ReleaseDC)>("user32.dll", "ReleaseDC")(window, context);
}

LONG roomBelowButtons(HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    return client.bottom - placeIn(dialog, IDYES).bottom;
}

}  // namespace

REPLACE_IMPORT(SetPropA, 12, setProperty);
REPLACE_IMPORT(RemovePropA, 8, removeProperty);
REPLACE_IMPORT(GetDC, 4, getContext);
REPLACE_IMPORT(ReleaseDC, 8, releaseContext);

TEST_CASE_FIXTURE(ModuleState, "The question for several files offers all answers, for one Yes and No") {
    const RealFile file("Quarterly Report.bin", "old");
    LONG places[2] = {};
    for (const int answer : {IDYES, IDYESTOALL, IDNO, IDCANCEL}) {
        CHECK(ask(nullptr, file.path(), TRUE, [&](HWND dialog) {
                  CHECK(windowText(dialog) == "Confirm File Replace");
                  CHECK(labelTexts(dialog) ==
                        "This folder already contains a file named 'Quarterly Report.bin'.|"
                        "Would you like to replace the existing file?");
                  CHECK(buttonTexts(dialog) == "[&Yes*][Yes to &All][&No][Cancel]");
                  CHECK(iconOf(dialog) == LoadIconA(ModuleInstance, MAKEINTRESOURCEA(IDI_CONFIRM_REPLACE)));
                  CHECK(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)) == IDYES);
                  places[0] = placeIn(dialog, IDNO).left;
                  places[1] = placeIn(dialog, IDCANCEL).left;
                  press(dialog, answer);
              }) == answer);
    }
    for (const int answer : {IDYES, IDNO}) {
        CHECK(ask(nullptr, file.path(), FALSE, [&](HWND dialog) {
                  CHECK(buttonTexts(dialog) == "[&Yes*][&No]");
                  CHECK(placeIn(dialog, IDYES).left == places[0]);
                  CHECK(placeIn(dialog, IDNO).left == places[1]);
                  // They can be reached by no key either.
                  for (const int away : {IDYESTOALL, IDCANCEL})
                      CHECK_FALSE(IsWindowEnabled(GetDlgItem(dialog, away)));
                  CHECK(placeIn(dialog, IDYES).top == placeIn(dialog, IDCANCEL).top);
                  CHECK(placeIn(dialog, IDNO).top == placeIn(dialog, IDCANCEL).top);
                  press(dialog, answer);
              }) == answer);
    }
}

TEST_CASE_FIXTURE(ModuleState, "The question comes up over its owner, which waits, else in the middle") {
    const RealFile file("OWNER.TXT", "old");
    const TestWindow owner(CreateWindowExA(0, "STATIC", "owner", WS_POPUP | WS_CAPTION | WS_VISIBLE, 120, 90,
                                           300, 200, nullptr, nullptr, nullptr, nullptr));
    ask(owner, file.path(), TRUE, [&](HWND dialog) {
        CHECK(GetWindow(dialog, GW_OWNER) == owner);
        CHECK_FALSE(IsWindowEnabled(owner));
        // Where the dialog manager puts it.
        CHECK(frameOf(dialog).left == frameOf(owner).left);
        press(dialog, IDNO);
    });
    CHECK(IsWindowEnabled(owner));
    const std::string longPath = std::string(150, 'W') + ".hqx";
    const RealFile longFile(longPath.c_str(), "old");
    for (const char* const path : {file.path(), longFile.path()}) {
        ask(nullptr, path, TRUE, [&](HWND dialog) {
            CHECK(GetWindow(dialog, GW_OWNER) == nullptr);
            RECT area = {};
            SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
            const RECT frame = frameOf(dialog);
            CHECK(frame.left == (area.left + area.right - sizeOf(frame).x) / 2);
            CHECK(frame.top == (area.top + area.bottom - sizeOf(frame).y) / 2);
            press(dialog, IDNO);
        });
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
        {"close", [](HWND dialog) { PostMessageA(dialog, WM_CLOSE, 0, 0); }, IDCANCEL},
        {"Enter", [](HWND) { typeKey(GetFocus(), VK_RETURN); }, IDYES},
        {"letter", [](HWND) { PostMessageA(GetFocus(), WM_CHAR, 'n', 0); }, IDNO},
    };
    for (const auto& way : ways) {
        CAPTURE(way.name);
        CHECK(ask(nullptr, file.path(), TRUE, way.act) == way.answer);
        CHECK(ask(nullptr, file.path(), FALSE, way.act) == way.answer);
    }
}

// Wine ends a dialog at Escape even where the Cancel button is disabled; other systems leave it to the
// buttons.
TEST_CASE_FIXTURE(ModuleState,
                  "The buttons of the question for one file take Escape, and no other key, themselves") {
    const RealFile file("KEYS.TXT", "old");
    for (const int button : {IDYES, IDNO}) {
        ask(nullptr, file.path(), FALSE, [&](HWND dialog) {
            HWND const control = GetDlgItem(dialog, button);
            MSG key = {control, WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
            const auto wants = [&](WPARAM wanted) {
                return SendMessageA(control, WM_GETDLGCODE, wanted, reinterpret_cast<LPARAM>(&key));
            };
            CHECK(wants(VK_ESCAPE) == (wants(VK_TAB) | DLGC_WANTMESSAGE));
            CHECK((wants(VK_TAB) & DLGC_WANTMESSAGE) == 0);
            CHECK((wants(VK_TAB) & DLGC_BUTTON) != 0);
            SendMessageA(control, WM_KEYDOWN, VK_TAB, 0);
            SendMessageA(control, WM_KEYUP, VK_ESCAPE, 0);
            MSG message;
            CHECK_FALSE(PeekMessageA(&message, dialog, WM_COMMAND, WM_COMMAND, PM_NOREMOVE));
            CHECK(SendMessageA(control, WM_KEYDOWN, VK_ESCAPE, 0) == 0);
            REQUIRE(PeekMessageA(&message, dialog, WM_COMMAND, WM_COMMAND, PM_NOREMOVE));
            CHECK(message.wParam == IDCANCEL);
            CHECK(propertiesHeld == 2);
        });
        CHECK(propertiesHeld == 0);
    }
}

TEST_CASE_FIXTURE(ModuleState,
                  "The question names the file as it is stored, however long, and makes room for it") {
    const std::string longName = std::string(40, 'W') + " & " + std::string(120, 'i') + "%1.hqx";
    const RealFile file(longName.c_str(), "old");
    const RealFile shortFile("SHORT.TXT", "old");
    std::string asked = longName;
    asked[0] = 'w';
    LONG room = 0;
    LONG labelHeight = 0;
    LONG left = 0;
    ask(nullptr, shortFile.path(), TRUE, [&](HWND dialog) {
        room = roomBelowButtons(dialog);
        left = placeIn(dialog, IDYES).left;
        labelHeight = sizeOf(placeIn(dialog, IDC_REPLACE_NAME)).y;
        press(dialog, IDNO);
    });
    ask(nullptr, asked.c_str(), TRUE, [&](HWND dialog) {
        HWND const label = GetDlgItem(dialog, IDC_REPLACE_NAME);
        CHECK(windowText(label) == "This folder already contains a file named '" + longName + "'.");
        press(dialog, IDNO);
        CHECK(contextsHeld == 0);
        // Without a display no text has a size.
        if (!kHasDisplay) return;
        // Two lines at first, then as many as the name takes.
        const LONG height = sizeOf(placeIn(dialog, IDC_REPLACE_NAME)).y;
        CHECK(height >= labelHeight / 2 * 4);
        CHECK(height % (labelHeight / 2) == 0);
        HWND const question = GetWindow(label, GW_HWNDNEXT);
        CHECK(frameOf(question).top >= frameOf(label).bottom);
        CHECK(frameOf(question).bottom < frameOf(GetDlgItem(dialog, IDYES)).top);
        CHECK(roomBelowButtons(dialog) == room);
        CHECK(placeIn(dialog, IDYES).left == left);
    });
}

TEST_CASE_FIXTURE(ModuleState,
                  "A file that is not there needs no question; one that cannot be shown gives -1") {
    const ModalDriver driver([](HWND window) { EndDialog(window, IDCANCEL); });
    CHECK(ConfirmFileReplace(nullptr, "MISSING.TXT", TRUE) == IDYES);
    const RealFile file("NOASK.TXT", "old");
    CHECK(ConfirmFileReplace(goneWindow(), file.path(), TRUE) == -1);
    InitializeModuleState(GetModuleHandleA("comctl32.dll"));
    CHECK(ConfirmFileReplace(nullptr, file.path(), TRUE) == -1);
    CHECK(driver.shown() == 0);
}
