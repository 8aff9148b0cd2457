// What every object of the library is made of that other programs hold by its interfaces.
#ifndef TIDEWELL_MODULE_REF_COUNTED_OBJECT_H
#define TIDEWELL_MODULE_REF_COUNTED_OBJECT_H

#include <windows.h>
#include <unknwn.h>

namespace tidewell {

// Counts the references on an object, beginning with the one of its maker, and with them what keeps the
// library loaded. An object is made with `new`, which returns null without memory, and destroys itself with
// its last reference. References are taken and given back on any thread.
class RefCountedObject : public IUnknown {
  public:
    RefCountedObject(const RefCountedObject&) = delete;
    RefCountedObject& operator=(const RefCountedObject&) = delete;

    // IUnknown only: what the interfaces of an object are is said where they are given to it (WithInterface).
    // E_POINTER for a null `object`, which else receives null with E_NOINTERFACE.
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    static void* operator new(size_t size) noexcept;
    static void operator delete(void* object) noexcept;

  protected:
    RefCountedObject();
    virtual ~RefCountedObject() = default;

  private:
    volatile LONG count_ = 1;
};

// `Base`, with one more interface before its own. The list of an object's interfaces is the list of its
// bases; the newest is looked for first, IUnknown last.
template <typename Interface, typename Base>
class WithInterface : public Interface, public Base {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (!object || iid != __uuidof(Interface)) return Base::QueryInterface(iid, object);
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return Base::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return Base::Release(); }
};

// Asks a new object for an interface, and gives back the reference of its maker: without the interface the
// object is gone. E_OUTOFMEMORY for null.
HRESULT HandOut(RefCountedObject* object, REFIID iid, void** result);

}  // namespace tidewell

#endif
