#include "automation/BusyRetry.h"

namespace zelbar {
namespace {

class RetryFilter final : public IMessageFilter {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept override {
        if (!result) return E_POINTER;
        const bool isKnown = iid == __uuidof(IUnknown) || iid == __uuidof(IMessageFilter);
        *result = isKnown ? this : nullptr;
        if (!isKnown) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) noexcept override {
        return SERVERCALL_ISHANDLED;
    }
    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD elapsed, DWORD) noexcept override {
        constexpr DWORD kPatience = 10000, kPause = 200, kGiveUp = static_cast<DWORD>(-1);
        return elapsed < kPatience ? kPause : kGiveUp;
    }
    STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) noexcept override {
        return PENDINGMSG_WAITDEFPROCESS;
    }

  private:
    virtual ~RetryFilter() = default;
    ULONG references_ = 0;
};

}  // namespace

BusyRetry::BusyRetry() {
    const Com<IMessageFilter> filter = Com<IMessageFilter>::share(new RetryFilter);
    CoRegisterMessageFilter(filter.get(), previous_.put());
}

BusyRetry::~BusyRetry() {
    Com<IMessageFilter> ours;
    CoRegisterMessageFilter(previous_.get(), ours.put());
}

}  // namespace zelbar
