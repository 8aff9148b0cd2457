#include "shellext/property_sheet_ext.h"

namespace tidewell {

HRESULT PropertySheetExt::AddPages(LPFNADDPROPSHEETPAGE, LPARAM) {
    return S_OK;
}

HRESULT PropertySheetExt::ReplacePage(UINT, LPFNADDPROPSHEETPAGE, LPARAM) {
    return E_FAIL;
}

}  // namespace tidewell
