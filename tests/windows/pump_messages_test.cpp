// Messages handled between the steps of a long operation.
#include "ui/pump_messages.h"

#include "res/resource.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

int commands = 0;

INT_PTR CALLBACK countCommands(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) ++commands;
    return FALSE;
}

struct Dialog {
    HWND window = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_CONFIRM_REPLACE),
                                     nullptr, countCommands, 0);
    Dialog() {
        REQUIRE(window != nullptr);
        commands = 0;
    }
    ~Dialog() { DestroyWindow(window); }
};

bool anyMessageWaits() {
    MSG message;
    return PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE;
}

}  // namespace

TEST_CASE_FIXTURE(Dialog, "Every waiting message is handled, the dialog's keys too") {
    HWND const other = CreateWindowExA(0, "BUTTON", "other", WS_POPUP | BS_CHECKBOX, 0, 0, 50, 50, nullptr,
                                       nullptr, nullptr, nullptr);
    PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
    PostMessageA(other, BM_SETCHECK, BST_CHECKED, 0);
    PumpMessages(window);
    CHECK(commands == 1);
    CHECK_FALSE(anyMessageWaits());
    CHECK(SendMessageA(other, BM_GETCHECK, 0, 0) == BST_CHECKED);

    // Without a dialog its keys are plain keys.
    PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
    PumpMessages(nullptr);
    CHECK(commands == 1);
    CHECK_FALSE(anyMessageWaits());
    DestroyWindow(other);
}

TEST_CASE_FIXTURE(Dialog, "A request to quit stays for the thread's own loop") {
    PostQuitMessage(42);
    PumpMessages(window);
    MSG message;
    CHECK(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    CHECK(message.message == WM_QUIT);
    CHECK(message.wParam == 42);
}
