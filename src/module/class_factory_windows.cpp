#include "module/class_factory.h"

#include "module/module_state.h"

namespace tidewell {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return outer ? CLASS_E_NOAGGREGATION : HandOut(make_(), iid, object);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock)
        InterlockedIncrement(&ModuleLockCount);
    else
        InterlockedDecrement(&ModuleLockCount);
    return S_OK;
}

}  // namespace tidewell
