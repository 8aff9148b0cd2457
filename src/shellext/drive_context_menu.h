// The commands for Mac disks in the menu of a drive.
#ifndef TIDEWELL_SHELLEXT_DRIVE_CONTEXT_MENU_H
#define TIDEWELL_SHELLEXT_DRIVE_CONTEXT_MENU_H

#include "shellext/shell_objects.h"

namespace tidewell {

// It has no commands yet: nothing is added to the menu, and to run one is E_FAIL.
class DriveContextMenu final : public ContextMenuBase {
  public:
    HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT index, UINT first, UINT last,
                                               UINT flags) override;
    HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO* invocation) override;
    // S_OK with nothing written: the commands have no names and no help. E_INVALIDARG for a number above 3.
    HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR command, UINT kind, UINT* reserved, char* buffer,
                                               UINT size) override;
};

}  // namespace tidewell

#endif
