#include "ui/file_failure.h"

#include "ui/user.h"

namespace tidewell {

int AskAfterFailure(const FileFailure& failure) {
    return CurrentUser().askAfterFailure(failure);
}

}  // namespace tidewell
