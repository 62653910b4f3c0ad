#pragma once

#include "com/Border.h"
#include "com/CallerVariant.h"

namespace zelbar {

/// The members of `ActionProperty`.
template <class Self>
class ActionPropertyBorder : public Border<Self, ::ActionProperty> {
  public:
    STDMETHODIMP put_Key(BSTR value) noexcept override {
        return perform(L"Error (Key - Let): ", [&] { self()->ActionProperty_Key(textOf(value)); });
    }
    STDMETHODIMP get_Key(BSTR* result) noexcept override {
        return answer(L"Error (Key - Get): ", result, [&] { return self()->ActionProperty_Key(); });
    }
    STDMETHODIMP get_PropertyName(BSTR* result) noexcept override {
        return answer(L"Error (PropertyName - Get): ", result,
                      [&] { return self()->ActionProperty_PropertyName(); });
    }
    STDMETHODIMP get_Values(VARIANT* result) noexcept override {
        return answer(L"Error (Values - Get): ", result, [&] { return self()->ActionProperty_Values(); });
    }
    STDMETHODIMP put_ValueIndex(short value) noexcept override {
        return perform(L"Error (ValueIndex - Let): ", [&] { self()->ActionProperty_ValueIndex(value); });
    }
    STDMETHODIMP get_ValueIndex(short* result) noexcept override {
        return answer(L"Error (ValueIndex - Get): ", result,
                      [&] { return self()->ActionProperty_ValueIndex(); });
    }
    STDMETHODIMP get_Value(VARIANT* result) noexcept override {
        return answer(L"Error (Value - Get): ", result, [&] { return self()->ActionProperty_Value(); });
    }
    STDMETHODIMP put_Value(VARIANT value) noexcept override {
        return perform(L"Error (Value - Let): ", [&] { self()->ActionProperty_Value(given(value)); });
    }
    STDMETHODIMP get_PropertyType(short* result) noexcept override {
        return answer(L"Error (PropertyType - Get): ", result,
                      [&] { return self()->ActionProperty_PropertyType(); });
    }
    STDMETHODIMP ExecuteCommand(BSTR, VARIANT, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand - ActionProperty): ", result, [] { return Variant(); });
    }

  private:
    using Border<Self, ::ActionProperty>::answer;
    using Border<Self, ::ActionProperty>::perform;
    using Border<Self, ::ActionProperty>::self;
};

}  // namespace zelbar
