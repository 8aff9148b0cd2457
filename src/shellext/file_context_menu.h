// The commands for Mac files in the menus of Explorer.
#ifndef TIDEWELL_SHELLEXT_FILE_CONTEXT_MENU_H
#define TIDEWELL_SHELLEXT_FILE_CONTEXT_MENU_H

#include "base/path_list.h"
#include "shellext/shell_objects.h"

namespace tidewell {

// For the menu of selected files and folders; and, when the shell has named a folder, for the menu of files
// that were dragged there with the right mouse button: they are converted into it.
class FileContextMenu final : public ContextMenuBase {
  public:
    // Adds the commands that the selection is good for at `index`, under numbers from `first` on. Success
    // with the count of numbers that are used, 0 when nothing is added. E_FAIL when the folder has no path.
    HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT index, UINT first, UINT last,
                                               UINT flags) override;
    // Runs a command by its number, less `first`, and returns S_OK when it is done, whatever came of it.
    // E_INVALIDARG for another number, E_FAIL for a name: the commands have none.
    HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO* invocation) override;
    // Tells what a command is for. S_OK with nothing written for other kinds; E_INVALIDARG for another
    // number.
    HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR command, UINT kind, UINT* reserved, char* buffer,
                                               UINT size) override;

  private:
    bool takeFolder();
    bool takeSelection();
    const char* hereFolder() const { return *folder_ != '\0' ? folder_ : nullptr; }

    PathList selection_;
    char folder_[MAX_PATH] = "";
};

}  // namespace tidewell

#endif
