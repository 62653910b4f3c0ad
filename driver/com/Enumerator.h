#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

#include <utility>
#include <vector>

#include "automation/Com.h"
#include "automation/Variant.h"
#include "com/CountedObject.h"

namespace zelbar {

/// A listener at a connection point.
struct Connection {
    DWORD cookie;
    Com<IUnknown> sink;
};

/// What a walk hands to its client, who owns it.
inline VARIANT handedOut(const Variant& value) {
    return Variant(value).detach();
}
inline IConnectionPoint* handedOut(const Com<IConnectionPoint>& point) {
    return Com<IConnectionPoint>(point).detach();
}
inline CONNECTDATA handedOut(const Connection& connection) {
    return {Com<IUnknown>(connection.sink).detach(), connection.cookie};
}

/// A walk over a list as it was when the walk began. `Given` is what the interface hands out for an element.
template <class Interface, class Given, class Element>
class Enumerator final : public CountedObject<Interface> {
  public:
    explicit Enumerator(std::vector<Element> elements, size_t position = 0)
        : elements_(std::move(elements)), position_(position) {}

    STDMETHODIMP Next(ULONG wanted, Given* out, ULONG* fetched) noexcept override {
        if (!out || (!fetched && wanted != 1)) return E_POINTER;
        ULONG given = 0;
        HRESULT answer = S_OK;
        try {
            for (; given < wanted && position_ < elements_.size(); ++given, ++position_)
                out[given] = handedOut(elements_[position_]);
            if (given < wanted) answer = S_FALSE;
        } catch (...) {
            answer = E_OUTOFMEMORY;
        }
        if (fetched) *fetched = given;
        return answer;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const bool enough = count <= elements_.size() - position_;
        position_ = enough ? position_ + count : elements_.size();
        return enough ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        try {
            *result = new Enumerator(elements_, position_);
            return S_OK;
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    }

  private:
    std::vector<Element> elements_;
    size_t position_;
};

/// What For Each walks over: the values as they are now, in their order.
inline Com<IUnknown> makeEnumerator(std::vector<Variant> values) {
    return Com<IUnknown>::adopt(new Enumerator<IEnumVARIANT, VARIANT, Variant>(std::move(values)));
}

}  // namespace zelbar
