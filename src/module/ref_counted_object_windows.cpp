#include "module/ref_counted_object.h"

#include "base/heap.h"
#include "module/module_state.h"

namespace tidewell {

RefCountedObject::RefCountedObject() {
    InterlockedIncrement(&ModuleLockCount);
}

HRESULT RefCountedObject::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != __uuidof(IUnknown)) return E_NOINTERFACE;
    *object = static_cast<IUnknown*>(this);
    AddRef();
    return S_OK;
}

ULONG RefCountedObject::AddRef() {
    InterlockedIncrement(&ModuleLockCount);
    return static_cast<ULONG>(InterlockedIncrement(&count_));
}

// The library stays loaded until the object is gone.
ULONG RefCountedObject::Release() {
    const LONG left = InterlockedDecrement(&count_);
    if (left == 0) delete this;
    InterlockedDecrement(&ModuleLockCount);
    return static_cast<ULONG>(left);
}

void* RefCountedObject::operator new(size_t size) noexcept {
    return HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size);
}

void RefCountedObject::operator delete(void* object) noexcept {
    DeleteRecord(object);
}

HRESULT HandOut(RefCountedObject* object, REFIID iid, void** result) {
    if (!object) return E_OUTOFMEMORY;
    const HRESULT answer = object->QueryInterface(iid, result);
    object->Release();
    return answer;
}

}  // namespace tidewell
