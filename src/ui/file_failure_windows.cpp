#include "res/resource.h"
#include "ui/message_box.h"
#include "ui/user_windows.h"

namespace tidewell {

int AskAfterFailureInBox(const FileFailure& failure) {
    return ShowErrorMessage(failure.owner, failure.error, failure.message, IDS_ERROR_TITLE, failure.style,
                            failure.file, failure.folder);
}

}  // namespace tidewell
