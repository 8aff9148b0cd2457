// What the shell's extensions of the library have in common: what the shell says they are for.
#ifndef TIDEWELL_SHELLEXT_SHELL_OBJECTS_H
#define TIDEWELL_SHELLEXT_SHELL_OBJECTS_H

#include "base/heap.h"
#include "base/item_list.h"
#include "module/ref_counted_object.h"

#include <shlobj.h>

namespace tidewell {

class ShellExtBase : public WithInterface<IShellExtInit, RefCountedObject> {
  public:
    // Takes what is selected in the place of what was, and a copy of the folder's item list, if there is one,
    // in the place of the last. E_OUTOFMEMORY when it cannot be copied: there is none then.
    HRESULT STDMETHODCALLTYPE Initialize(const ITEMIDLIST* folder, IDataObject* selected, HKEY key) override;

  protected:
    // Null for none.
    IDataObject* Selected() const { return selected_.get(); }
    const ITEMIDLIST* Folder() const { return folder_.get(); }

  private:
    struct CopyTraits {
        using Value = ITEMIDLIST*;
        static Value none() noexcept { return nullptr; }
        static void close(Value list) noexcept { DeleteRecord(list); }
    };

    Reference<IDataObject> selected_;
    Owned<CopyTraits> folder_;
};

// Extensions that add commands to a menu.
using ContextMenuBase = WithInterface<IContextMenu, ShellExtBase>;

}  // namespace tidewell

#endif
