#include "com/ClassFactory.h"

#include <new>

#include "com/CountedObject.h"
#include "com/ModuleState.h"

namespace zelbar {

namespace {

class ClassFactory final : public CountedObject<IClassFactory> {
  public:
    explicit ClassFactory(Com<IUnknown> (*create)()) : create_(create) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        try {
            return create_()->QueryInterface(id, result);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (...) {
            return E_UNEXPECTED;
        }
    }
    STDMETHODIMP LockServer(BOOL lock) noexcept override {
        lock ? InterlockedIncrement(&moduleState().locks) : InterlockedDecrement(&moduleState().locks);
        return S_OK;
    }

  private:
    Com<IUnknown> (*create_)();
};

}  // namespace

Com<IClassFactory> makeClassFactory(Com<IUnknown> (*create)()) {
    return Com<IClassFactory>::adopt(new ClassFactory(create));
}

}  // namespace zelbar
