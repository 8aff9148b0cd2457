// What is asked when one file of a batch has failed.
#ifndef TIDEWELL_UI_FILE_FAILURE_H
#define TIDEWELL_UI_FILE_FAILURE_H

#include "base/error_code.h"

namespace tidewell {

struct FileFailure {
    HWND owner;
    ErrorCode error;
    DWORD message;       // %1 is the system's text of the error, %%1 the file and %%2 the folder
    UINT style;          // a message box's: its buttons and its icon
    const char* file;    // as the user knows it
    const char* folder;  // that the file was to go to
};

// Tells the user, and returns the button that was pressed; -1 when nobody could be told.
int AskAfterFailure(const FileFailure& failure);

}  // namespace tidewell

#endif
