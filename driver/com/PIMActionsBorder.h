#pragma once

#include "com/Border.h"

namespace zelbar {

/// The members of `PIMActions`.
template <class Self>
class PIMActionsBorder : public Border<Self, ::PIMActions> {
  public:
    STDMETHODIMP Item(LONG id, IDispatch** result) noexcept override {
        return answer(L"Error (Item - PIMActions): ", result, [&] { return self()->PIMActions_Item(id); });
    }
    STDMETHODIMP get_Count(LONG* result) noexcept override {
        return answer(L"Error (Count - PIMActions): ", result, [&] { return self()->PIMActions_Count(); });
    }
    STDMETHODIMP NewEnum(IUnknown** result) noexcept override {
        return answer(L"Error (NewEnum - PIMActions): ", result,
                      [&] { return self()->PIMActions_NewEnum(); });
    }
    STDMETHODIMP NewAction(LONG id, IDispatch** result) noexcept override {
        return answer(L"Error (NewAction): ", result, [&] { return self()->PIMActions_NewAction(id); });
    }
    STDMETHODIMP ExecuteCommand(BSTR, VARIANT, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand - PIMActions): ", result, [] { return Variant(); });
    }

  private:
    using Border<Self, ::PIMActions>::answer;
    using Border<Self, ::PIMActions>::perform;
    using Border<Self, ::PIMActions>::self;
};

}  // namespace zelbar
