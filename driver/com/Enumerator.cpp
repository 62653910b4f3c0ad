#include "com/Enumerator.h"

#include <utility>

#include "com/ModuleState.h"

namespace zelbar {

namespace {

class Enumerator final : public IEnumVARIANT {
  public:
    Enumerator(std::vector<Variant> values, size_t position)
        : values_(std::move(values)), position_(position) {}

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (id != __uuidof(IUnknown) && id != __uuidof(IEnumVARIANT)) return E_NOINTERFACE;
        *result = static_cast<IEnumVARIANT*>(this);
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
    ~Enumerator() = default;

    LONG references_ = 1;
    std::vector<Variant> values_;
    size_t position_;
    LiveObject live_;
};

}  // namespace

Com<IUnknown> makeEnumerator(std::vector<Variant> values) {
    return Com<IUnknown>::adopt(new Enumerator(std::move(values), 0));
}

}  // namespace zelbar
