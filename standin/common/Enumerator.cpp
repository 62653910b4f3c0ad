#include "standin/common/Enumerator.h"

namespace standin {
namespace {

class Enumerator final : public IEnumVARIANT {
  public:
    Enumerator(Server& server, std::function<long()> count, std::function<Value(long)> element, long position)
        : server_(server),
          count_(std::move(count)),
          element_(std::move(element)),
          position_(position),
          life_(server.life()),
          generation_(life_->generation),
          live_(server) {}
    virtual ~Enumerator() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        if (!result) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IEnumVARIANT;
        *result = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP Next(ULONG wanted, VARIANT* values, ULONG* fetched) noexcept override {
        if (!values || (wanted > 1 && !fetched)) return E_POINTER;
        ULONG done = 0;
        if (fetched) *fetched = 0;
        if (generation_ != life_->generation) return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
        try {
            for (; done < wanted && position_ <= count_(); ++done, ++position_) {
                Value value = element_(position_);
                values[done] = value.Detach();
            }
        } catch (...) {
            position_ = LONG_MAX;
        }
        if (fetched) *fetched = done;
        return done == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) noexcept override {
        position_ += static_cast<long>(count);
        return S_OK;
    }
    STDMETHODIMP Reset() noexcept override {
        position_ = 1;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** result) noexcept override {
        if (!result) return E_POINTER;
        *result = new (std::nothrow) Enumerator(server_, count_, element_, position_);
        return *result ? S_OK : E_OUTOFMEMORY;
    }

  private:
    Server& server_;
    std::function<long()> count_;
    std::function<Value(long)> element_;
    long position_;
    const std::shared_ptr<ServerLife> life_;
    const unsigned generation_;
    LiveToken live_;
    ULONG references_ = 1;
};

}  // namespace

Ref<IEnumVARIANT> makeEnumerator(Server& server, std::function<long()> count,
                                 std::function<Value(long)> element) {
    return adopt<IEnumVARIANT>(new Enumerator(server, std::move(count), std::move(element), 1));
}

}  // namespace standin
