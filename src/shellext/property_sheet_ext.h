// The Mac page in the Properties of a file, a folder or a volume.
#ifndef TIDEWELL_SHELLEXT_PROPERTY_SHEET_EXT_H
#define TIDEWELL_SHELLEXT_PROPERTY_SHEET_EXT_H

#include "shellext/shell_objects.h"

namespace tidewell {

// It has no page yet, and adds none.
class PropertySheetExt final : public WithInterface<IShellPropSheetExt, ShellExtBase> {
  public:
    HRESULT STDMETHODCALLTYPE AddPages(LPFNADDPROPSHEETPAGE add, LPARAM parameter) override;
    // E_FAIL: no page of the shell's is replaced.
    HRESULT STDMETHODCALLTYPE ReplacePage(UINT page, LPFNADDPROPSHEETPAGE replace, LPARAM parameter) override;
};

}  // namespace tidewell

#endif
