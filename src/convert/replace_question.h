// The question before a file of a batch is replaced.
#ifndef TIDEWELL_CONVERT_REPLACE_QUESTION_H
#define TIDEWELL_CONVERT_REPLACE_QUESTION_H

#include "base/error_code.h"
#include "tidewell.h"
#include "ui/progress.h"

namespace tidewell {

// The flags that the files of a batch share.
constexpr DWORD kReplaceAll = TIDEWELL_REPLACE_ALL;
constexpr DWORD kMoreFollow = TIDEWELL_MORE_FOLLOW;

// 0 when what is at `path` may be replaced, or nothing is there; and when the user keeps it: then `skip` is
// set. Nothing is asked while `flags` has kReplaceAll, which the user's Yes to All sets. The progress, which
// may be null, pauses meanwhile. ERROR_CANCELLED when the user cancels; the system's error, or
// ERROR_FILE_EXISTS, when nobody could be asked.
ErrorCode AskToReplace(HWND owner, const char* path, DWORD& flags, ProgressDialog* progress, bool& skip);

}  // namespace tidewell

#endif
