#include "ui/confirm_replace.h"

#include "ui/user.h"

namespace tidewell {

int ConfirmFileReplace(HWND owner, const char* path, BOOL several) {
    return CurrentUser().confirmReplace(owner, path, several);
}

}  // namespace tidewell
