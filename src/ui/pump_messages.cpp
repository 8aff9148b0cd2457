#include "ui/pump_messages.h"

namespace tidewell {

void PumpMessages(HWND dialog) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (dialog && IsDialogMessageA(dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace tidewell
