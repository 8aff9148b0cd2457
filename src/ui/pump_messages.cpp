#include "ui/pump_messages.h"

#include "ui/user.h"

namespace tidewell {

void PumpMessages(HWND dialog) {
    CurrentUser().pumpMessages(dialog);
}

}  // namespace tidewell
