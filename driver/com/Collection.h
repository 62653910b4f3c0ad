#pragma once

#include <PIMDriverAbstract.h>

#include <vector>

#include "automation/Variant.h"
#include "com/Answer.h"
#include "com/CallerVariant.h"
#include "com/DualObject.h"
#include "com/Enumerator.h"

namespace zelbar {

/// A collection of values for the client: e-mails, numbers, contacts. Filled by the driver, read by the
/// client.
class Collection final : public DualObject<ValueCollection> {
  public:
    STDMETHODIMP Item(VARIANT index, VARIANT* result) noexcept override {
        return border::answer(this, L"Error (Collection - Item): ", result, [&] { return at(index); });
    }
    STDMETHODIMP get_Count(LONG* result) noexcept override {
        return border::answer(this, L"Error (Collection - Count): ", result, [&] { return count(); });
    }
    STDMETHODIMP NewEnum(IUnknown** result) noexcept override {
        return border::answer(this, L"Error (Collection - NewEnum): ", result,
                              [&] { return makeEnumerator(values_); });
    }

    void add(Variant value) { values_.push_back(std::move(value)); }
    long count() const { return static_cast<long>(values_.size()); }
    const std::vector<Variant>& values() const { return values_; }

  private:
    const Variant& at(VARIANT& index) const {
        const long position = given(index).integer();
        if (position < 1 || position > count()) throw runtimeFault(fault::kSubscriptOutOfRange);
        return values_[static_cast<size_t>(position) - 1];
    }

    std::vector<Variant> values_;
};

}  // namespace zelbar
