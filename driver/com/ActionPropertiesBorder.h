#pragma once

#include "com/Border.h"
#include "com/CallerVariant.h"

namespace zelbar {

/// The members of `ActionProperties`.
template <class Self>
class ActionPropertiesBorder : public Border<Self, ::ActionProperties> {
  public:
    STDMETHODIMP Item(VARIANT index, ::ActionProperty** result) noexcept override {
        return answer(L"Error (Item - ActionProperties): ", result,
                      [&] { return self()->ActionProperties_Item(given(index)); });
    }
    STDMETHODIMP get_Count(LONG* result) noexcept override {
        return answer(L"Error (Count - ActionProperties): ", result,
                      [&] { return self()->ActionProperties_Count(); });
    }
    STDMETHODIMP NewEnum(IUnknown** result) noexcept override {
        return answer(L"Error (NewEnum - ActionProperties): ", result,
                      [&] { return self()->ActionProperties_NewEnum(); });
    }
    STDMETHODIMP ExecuteCommand(BSTR, VARIANT, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand - ActionProperties): ", result, [] { return Variant(); });
    }

  private:
    using Border<Self, ::ActionProperties>::answer;
    using Border<Self, ::ActionProperties>::perform;
    using Border<Self, ::ActionProperties>::self;
};

}  // namespace zelbar
