#include "ui/user_windows.h"

namespace tidewell {

constinit const User WindowsUser = {
    &ProgressWindowDisplay,
    ConfirmReplaceInWindow,
    AskAfterFailureInBox,
    [](HWND dialog) { PumpMessagesOf(nullptr, dialog); },
};

}  // namespace tidewell
