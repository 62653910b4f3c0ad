#include "com/Enumerator.h"

#include <utility>

#include "com/CountedObject.h"

namespace zelbar {

namespace {

class Enumerator final : public CountedObject<IEnumVARIANT> {
  public:
    Enumerator(std::vector<Variant> values, size_t position)
        : values_(std::move(values)), position_(position) {}

    STDMETHODIMP Next(ULONG wanted, VARIANT* out, ULONG* fetched) noexcept override {
        if (!out || (!fetched && wanted != 1)) return E_POINTER;
        ULONG given = 0;
        try {
            for (; given < wanted && position_ < values_.size(); ++given, ++position_)
                out[given] = Variant(values_[position_]).detach();
        } catch (...) {
            if (fetched) *fetched = given;
            return E_OUTOFMEMORY;
        }
        if (fetched) *fetched = given;
        return given == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        const bool enough = count <= values_.size() - position_;
        position_ = enough ? position_ + count : values_.size();
        return enough ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        try {
            *result = new Enumerator(values_, position_);
            return S_OK;
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    }

  private:
    std::vector<Variant> values_;
    size_t position_;
};

}  // namespace

Com<IUnknown> makeEnumerator(std::vector<Variant> values) {
    return Com<IUnknown>::adopt(new Enumerator(std::move(values), 0));
}

}  // namespace zelbar
