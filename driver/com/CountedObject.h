#pragma once

#include <windows.h>

#include <unknwn.h>

#include "com/ModuleState.h"

namespace zelbar {

/// A counted COM object behind one interface that has no members by name. Starts with one reference, its
/// maker's.
template <class Interface>
class CountedObject : public Interface {
  public:
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (id != __uuidof(IUnknown) && id != __uuidof(Interface)) return E_NOINTERFACE;
        *result = static_cast<Interface*>(this);
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

  protected:
    CountedObject() = default;
    virtual ~CountedObject() = default;

  private:
    LONG references_ = 1;
    LiveObject live_;
};

}  // namespace zelbar
