// A list of the shell's item identifiers, and references to the shell's objects.
#ifndef TIDEWELL_BASE_ITEM_LIST_H
#define TIDEWELL_BASE_ITEM_LIST_H

#include "base/owned.h"

#include <windows.h>
#include <shlobj.h>

namespace tidewell {

template <typename Interface>
struct ReferenceTraits {
    using Value = Interface*;
    static Value none() noexcept { return nullptr; }
    static void close(Value object) noexcept { object->Release(); }
};
template <typename Interface>
using Reference = Owned<ReferenceTraits<Interface>>;

struct ItemListTraits {
    using Value = ITEMIDLIST*;
    static Value none() noexcept { return nullptr; }
    static void close(Value list) noexcept {
        IMalloc* allocator = nullptr;
        if (FAILED(SHGetMalloc(&allocator))) return;
        allocator->Free(list);
        allocator->Release();
    }
};
using ItemList = Owned<ItemListTraits>;

}  // namespace tidewell

#endif
