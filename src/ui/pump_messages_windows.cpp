#include "ui/user_windows.h"

namespace tidewell {

void PumpMessagesOf(HWND window, HWND dialog) {
    MSG message;
    bool quits = false;
    int exitCode = 0;
    while (PeekMessageA(&message, window, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // It comes whatever the window, and before any input.
            quits = true;
            exitCode = static_cast<int>(message.wParam);
        } else if (!dialog || !IsDialogMessageA(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    // It ends the loop that runs the thread, and has to reach it.
    if (quits) PostQuitMessage(exitCode);
}

}  // namespace tidewell
