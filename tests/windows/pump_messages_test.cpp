// Messages handled between the steps of a long operation.
#include "ui/pump_messages.h"

#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

int commands = 0;

INT_PTR CALLBACK countCommands(HWND, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) ++commands;
    return FALSE;
}

WPARAM character = 0;

LRESULT CALLBACK keepCharacter(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CHAR) character = wParam;
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

TEST_CASE_FIXTURE(
    ModuleState,
    "Every waiting message is handled, the dialog's keys too; a request to quit stays for the thread") {
    commands = 0;
    const TestWindow dialog(CreateDialogParamA(
        GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_CONFIRM_REPLACE), nullptr, countCommands, 0));
    const TestWindow other("other");
    PostMessageA(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
    PostMessageA(other, WM_CLOSE, 0, 0);
    PumpMessages(dialog);
    CHECK(commands == 1);
    MSG message;
    CHECK_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    CHECK_FALSE(IsWindow(other));

    // Without a dialog its keys are plain keys.
    PostMessageA(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
    const TestWindow typedInto("typed into");
    SetWindowLongPtrA(typedInto, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(keepCharacter));
    PostMessageA(typedInto, WM_KEYDOWN, '7', 0);
    PumpMessages(nullptr);
    CHECK(character == '7');
    CHECK(commands == 1);

    // It comes before keys, which must work all the same.
    PostQuitMessage(42);
    PostMessageA(dialog, WM_KEYDOWN, VK_ESCAPE, 0);
    PumpMessages(dialog);
    CHECK(commands == 2);
    CHECK(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    CHECK(message.message == WM_QUIT);
    CHECK(message.wParam == 42);
}
