#include "convert/replace_question.h"

#include "ui/confirm_replace.h"

namespace tidewell {

ErrorCode AskToReplace(HWND owner, const char* path, DWORD& flags, ProgressDialog* progress, bool& skip) {
    if ((flags & kReplaceAll) != 0) return 0;
    ProgressPause(progress);
    SetLastError(NO_ERROR);
    const int answer = ConfirmFileReplace(owner, path, (flags & kMoreFollow) != 0 ? TRUE : FALSE);
    // The resume serves the display, which must not lose the answer to its last error.
    const ErrorCode error = answer == -1 ? lastErrorOr(ERROR_FILE_EXISTS) : ERROR_FILE_EXISTS;
    ProgressResume(progress);
    switch (answer) {
    case IDYESTOALL: flags |= kReplaceAll; return 0;
    case IDYES: return 0;
    case IDNO: skip = true; return 0;
    case IDCANCEL: return ERROR_CANCELLED;
    default: return error;  // nobody could be asked: what is there stays
    }
}

}  // namespace tidewell
