#include "ui/pump_messages.h"
#include "ui/user_windows.h"

namespace tidewell {

void PumpMessagesOf(HWND window, HWND dialog) {
    MSG message;
    MSG quit = {};
    while (PeekMessageA(&message, window, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // It comes whatever the window, and before any input.
            quit = message;
        } else if (!dialog || !IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    // It ends the loop that runs the thread, and has to reach it.
    if (quit.message == WM_QUIT) PostQuitMessage(static_cast<int>(quit.wParam));
}

bool IsAskedToQuit() {
    MSG quit;
    return PeekMessageA(&quit, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != 0;
}

}  // namespace tidewell
