// The system's folder chooser in the test program: the test answers it.
#ifndef TIDEWELL_TESTS_SUPPORT_FOLDER_CHOOSER_H
#define TIDEWELL_TESTS_SUPPORT_FOLDER_CHOOSER_H

#include <windows.h>

#include <string>

// What is chosen, and what the chooser was shown with.
struct FolderChooser {
    std::string choice;  // empty: Cancel
    HWND owner = nullptr;
    std::string title = {};
    std::string selected = {};  // the path of the folder at the start
    UINT selectedSize = 0;      // of its item list, in bytes
    int shown = 0;
};
extern FolderChooser folderChooser;

#endif
