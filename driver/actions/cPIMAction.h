#pragma once

#include <PIMDriverAbstract.h>

#include "com/DualObject.h"

namespace zelbar {

/// An action that does nothing: what the interface `PIMAction` looks like without a kind behind it.
class cPIMAction final : public DualObject<::PIMAction> {
  public:
    STDMETHODIMP ExecuteAction(::Contact** contact, VARIANT_BOOL* result) noexcept override {
        return contact ? give(result, VARIANT_FALSE) : E_POINTER;
    }
    /// A null text is an empty one.
    STDMETHODIMP get_ActionName(BSTR* result) noexcept override { return give(result, BSTR{}); }
    STDMETHODIMP get_PassiveAction(VARIANT_BOOL* result) noexcept override {
        return give(result, VARIANT_TRUE);
    }
    STDMETHODIMP get_ActionID(LONG* result) noexcept override { return give(result, 0L); }
    STDMETHODIMP get_ActionProp(::ActionProperties** result) noexcept override {
        return give(result, static_cast<::ActionProperties*>(nullptr));
    }
    STDMETHODIMP ExecuteCommand(BSTR, VARIANT, VARIANT* result) noexcept override {
        return give(result, VARIANT{});
    }

  private:
    template <class Result>
    static HRESULT give(Result* out, Result value) noexcept {
        if (!out) return E_POINTER;
        *out = value;
        return S_OK;
    }
};

}  // namespace zelbar
