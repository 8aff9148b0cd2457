#include "shellext/drive_context_menu.h"

namespace tidewell {

HRESULT DriveContextMenu::QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) {
    return S_OK;
}

HRESULT DriveContextMenu::InvokeCommand(CMINVOKECOMMANDINFO*) {
    return E_FAIL;
}

HRESULT DriveContextMenu::GetCommandString(UINT_PTR command, UINT, UINT*, char*, UINT) {
    return command > 3 ? E_INVALIDARG : S_OK;
}

}  // namespace tidewell
