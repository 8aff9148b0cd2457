#include "messages.h"
#include "res/resource.h"
#include "ui/message_box.h"
#include "ui/size_scale.h"
#include "ui/user_windows.h"

namespace tidewell {

int AskAfterFailureInBox(const FileFailure& failure) {
    const int button = ShowErrorMessage(failure.owner, failure.error, failure.message, IDS_ERROR_TITLE,
                                        failure.style, failure.file, failure.folder);
    if (button != -1) return button;
    // An error that the system has no text for: its number has to do.
    char number[kDigitsCapacity];
    FormatDigits(failure.error, number);
    return MessageBoxFromTable(failure.owner, MSG_CONVERSION_FAILED, IDS_ERROR_TITLE, failure.style, number);
}

}  // namespace tidewell
