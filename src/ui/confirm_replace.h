// The question before an existing file is replaced.
#ifndef TIDEWELL_UI_CONFIRM_REPLACE_H
#define TIDEWELL_UI_CONFIRM_REPLACE_H

#include "res/resource.h"

#include <windows.h>

namespace tidewell {

// IDYES, IDNO, IDCANCEL or IDYESTOALL; -1, with the last error where there is one, when the question cannot
// be asked. `several`: more files follow, so an answer for all of them is offered.
//
// IDYES comes at once, without a question, when nothing at `path` could be lost: the system's error of
// looking at it says that there is no such file, folder, drive, server, share, disk or network, or no such
// path (MeansNothingThere). A file that cannot be looked at for another reason, such as ERROR_CRC or
// ERROR_ACCESS_DENIED, may be there, and is asked about.
int ConfirmFileReplace(HWND owner, const char* path, BOOL several);

}  // namespace tidewell

#endif
