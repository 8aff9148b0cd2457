// Asks the user for the file to save in.
#ifndef TIDEWELL_RESOURCES_SAVE_DIALOG_H
#define TIDEWELL_RESOURCES_SAVE_DIALOG_H

#include "base/error_code.h"

#include <windows.h>

namespace tidewell {

struct SaveQuestion {
    HWND owner;
    UINT filterId;          // a string: texts and patterns, with bars between them
    const char* extension;  // of a name that is typed without one; may be empty
    DWORD filter;           // the chosen one, from 1 on; on return
    char* path;             // kPathCapacity bytes; the proposed name on entry, the path on return
    ErrorCode error;        // on return
};

// Whether the user has chosen a file. If not, the error is 0 when the user wants none, else why the dialog
// cannot be shown; ERROR_GEN_FAILURE where it does not say.
bool AskWhereToSave(SaveQuestion& question);

}  // namespace tidewell

#endif
