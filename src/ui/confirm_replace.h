// The question before an existing file is replaced.
#ifndef TIDEWELL_UI_CONFIRM_REPLACE_H
#define TIDEWELL_UI_CONFIRM_REPLACE_H

#include "res/resource.h"

#include <windows.h>

namespace tidewell {

// IDYES, IDNO, IDCANCEL or IDYESTOALL; IDYES at once, without a question, when there is no such file;
// -1 when the question cannot be asked. `several`: more files follow, so an answer for all of them is
// offered.
int ConfirmFileReplace(HWND owner, const char* path, BOOL several);

}  // namespace tidewell

#endif
