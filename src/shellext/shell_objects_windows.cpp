#include "shellext/shell_objects.h"

#include <cstring>

namespace tidewell {

namespace {

// In bytes: the items, each of which begins with its size, and the size of 0 after them.
size_t sizeOfList(const ITEMIDLIST* list) {
    const auto* const bytes = reinterpret_cast<const BYTE*>(list);
    size_t size = 0;
    for (USHORT item = 1; item != 0; size += item)
        std::memcpy(&item, bytes + size, sizeof item);
    return size + sizeof(USHORT);
}

ITEMIDLIST* copyOf(const ITEMIDLIST* list) {
    const size_t size = sizeOfList(list);
    void* const copy = HeapAlloc(GetProcessHeap(), 0, size);
    if (copy) std::memcpy(copy, list, size);
    return static_cast<ITEMIDLIST*>(copy);
}

}  // namespace

HRESULT ShellExtBase::Initialize(const ITEMIDLIST* folder, IDataObject* selected, HKEY) {
    // Before the last one goes: it may be the same.
    if (selected) selected->AddRef();
    selected_ = Reference<IDataObject>(selected);
    if (!folder) return S_OK;
    folder_ = Owned<CopyTraits>(copyOf(folder));
    return folder_ ? S_OK : E_OUTOFMEMORY;
}

}  // namespace tidewell
