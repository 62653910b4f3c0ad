#include "com/ClassFactory.h"

#include <new>

#include "com/ModuleState.h"

namespace zelbar {

namespace {

class ClassFactory final : public IClassFactory {
  public:
    explicit ClassFactory(Com<IUnknown> (*create)()) : create_(create) {}

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (id != __uuidof(IUnknown) && id != __uuidof(IClassFactory)) return E_NOINTERFACE;
        *result = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

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
    ~ClassFactory() = default;

    LONG references_ = 1;
    Com<IUnknown> (*create_)();
    LiveObject live_;
};

}  // namespace

Com<IClassFactory> makeClassFactory(Com<IUnknown> (*create)()) {
    return Com<IClassFactory>::adopt(new ClassFactory(create));
}

}  // namespace zelbar
