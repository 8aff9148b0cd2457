// Folders as the shell knows them.
#ifndef TIDEWELL_UI_SHELL_FOLDERS_H
#define TIDEWELL_UI_SHELL_FOLDERS_H

#include "base/item_list.h"

namespace tidewell {

// The folder whose files are on the user's desktop, into `buffer` of kPathCapacity bytes.
bool GetDesktopDirectoryPath(char* buffer);

// Whether `path` is that folder, under whatever name.
bool IsDesktopDirectory(const char* path);

// The shell's item list of a path. Returns the result of parsing it; `itemList` stays empty on a failure.
HRESULT PathToItemList(HWND owner, const char* path, ItemList& itemList);

// Lets the user choose a folder of the file system. `path` (kPathCapacity bytes) is the folder selected at
// the start, and receives the chosen one. False when the user cancels, or when there is no such folder to
// start with: then nothing is asked.
bool BrowseForFolder(HWND owner, const char* title, char* path);

}  // namespace tidewell

#endif
