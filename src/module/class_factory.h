// The object by which COM makes others.
#ifndef TIDEWELL_MODULE_CLASS_FACTORY_H
#define TIDEWELL_MODULE_CLASS_FACTORY_H

#include "module/ref_counted_object.h"

namespace tidewell {

// A new object with the reference of its maker; null without memory.
using ObjectMaker = RefCountedObject* (*)();

class ClassFactory final : public WithInterface<IClassFactory, RefCountedObject> {
  public:
    explicit ClassFactory(ObjectMaker make) : make_(make) {}

    // CLASS_E_NOAGGREGATION for an outer object, E_OUTOFMEMORY, or what the new object says of the interface.
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    // Keeps the library loaded, for as many locks as there are.
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    const ObjectMaker make_;
};

}  // namespace tidewell

#endif
