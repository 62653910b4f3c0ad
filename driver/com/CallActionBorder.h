#pragma once

#include "com/Border.h"
#include "com/ContactArgument.h"

namespace zelbar {

/// The members of a call action of this driver: by name those of `CallAction`, through the slots those of
/// `PIMAction` as well.
template <class Self>
class CallActionBorder : public Border<Self, ::CallAction, ::PIMAction> {
  public:
    STDMETHODIMP ExecuteAction(::Contact** contact, VARIANT_BOOL* result) noexcept override {
        if (!contact) return E_POINTER;
        return answer(L"Error (ExecuteAction): ", result, [&] {
            ContactArgument argument(*contact);
            return self()->PIMAction_ExecuteAction(argument);
        });
    }
    STDMETHODIMP get_ActionName(BSTR* result) noexcept override {
        return answer(L"Error (ActionName): ", result, [&] { return self()->PIMAction_ActionName(); });
    }
    STDMETHODIMP get_PassiveAction(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (PassiveAction): ", result, [&] { return self()->PIMAction_PassiveAction(); });
    }
    STDMETHODIMP get_ActionID(LONG* result) noexcept override {
        return answer(L"Error (ActionID): ", result, [&] { return self()->PIMAction_ActionID(); });
    }
    STDMETHODIMP get_ActionProp(::ActionProperties** result) noexcept override {
        return answer(L"Error (ActionProp): ", result, [&] { return self()->PIMAction_ActionProp(); });
    }
    STDMETHODIMP ExecuteCommand(BSTR, VARIANT, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand - PIMAction): ", result, [] { return Variant(); });
    }
    STDMETHODIMP CopyAction(IDispatch** result) noexcept override {
        return answer(L"Error (CopyAction): ", result, [&] { return self()->PIMAction_CopyAction(); });
    }

  private:
    using Border<Self, ::CallAction, ::PIMAction>::answer;
    using Border<Self, ::CallAction, ::PIMAction>::perform;
    using Border<Self, ::CallAction, ::PIMAction>::self;
};

}  // namespace zelbar
