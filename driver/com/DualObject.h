#pragma once

#include <windows.h>

#include <oaidl.h>

#include <utility>

#include "automation/Com.h"
#include "com/LateCall.h"
#include "com/ModuleState.h"
#include "com/TypeLibrary.h"

namespace zelbar {

/// A counted COM object behind one dual interface, callable through its slots and by name. `More` are further
/// interfaces with the same members that early-bound clients may ask for. Made by `makeObject`.
template <class Interface, class... More>
class DualObject : public Interface, public More... {
  public:
    DualObject(const DualObject&) = delete;
    DualObject& operator=(const DualObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(Interface))
            *result = static_cast<Interface*>(this);
        else if (!(findInterface<More>(id, result) || ...))
            *result = further(id);
        if (!*result) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) {
            // An object that hands itself out while it goes must not be destroyed twice.
            references_ = 1;
            delete this;
        }
        return static_cast<ULONG>(left);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        *result = description().detach();
        return *result ? S_OK : TYPE_E_CANTLOADLIBRARY;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept override {
        if (!names || !ids) return E_POINTER;
        const auto info = description();
        return info ? info->GetIDsOfNames(names, count, ids) : TYPE_E_CANTLOADLIBRARY;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) noexcept override {
        if (!parameters) return E_POINTER;
        const auto info = description();
        if (!info) return TYPE_E_CANTLOADLIBRARY;
        return lateCall(static_cast<Interface*>(this), *info.get(), member, flags, *parameters, result,
                        exception, badArgument);
    }

  protected:
    DualObject() = default;
    virtual ~DualObject() = default;

    /// An interface beside the dual ones, without a reference of its own; none when there is no such.
    virtual void* further(REFIID) noexcept { return nullptr; }

  private:
    template <class Other>
    bool findInterface(REFIID id, void** result) {
        if (id != __uuidof(Other)) return false;
        *result = static_cast<Other*>(this);
        return true;
    }
    static Com<ITypeInfo> description() noexcept {
        try {
            return typeInfoOf(__uuidof(Interface));
        } catch (...) {
            return {};
        }
    }

    LONG references_ = 1;
    LiveObject live_;
};

/// A new object, with the caller as the owner of its only reference.
template <class T, class... Arguments>
Com<T> makeObject(Arguments&&... arguments) {
    return Com<T>::adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace zelbar
