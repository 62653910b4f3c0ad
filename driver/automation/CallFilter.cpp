#include "automation/CallFilter.h"

#include <utility>

namespace zelbar {

/// Counted, since whoever takes its place may keep it and put it back when its time is over: it only passes
/// on from then.
class CallFilter::Filter final : public IMessageFilter {
  public:
    explicit Filter(CallRules rules) : rules_(std::move(rules)) {}

    void stand(Com<IMessageFilter> before) { before_ = std::move(before); }
    void retire() { standing_ = false; }
    IMessageFilter* before() const { return before_.get(); }

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

    STDMETHODIMP_(DWORD)
    HandleInComingCall(DWORD type, HTASK caller, DWORD elapsed, LPINTERFACEINFO call) noexcept override {
        if (before_) return before_->HandleInComingCall(type, caller, elapsed, call);
        return SERVERCALL_ISHANDLED;
    }
    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD reason) noexcept override {
        if (isInForce()) return rules_.retry(elapsed);
        return before_ ? before_->RetryRejectedCall(callee, elapsed, reason) : CallRules::kGiveUp;
    }
    STDMETHODIMP_(DWORD) MessagePending(HTASK callee, DWORD elapsed, DWORD type) noexcept override {
        const bool own = isInForce();
        if (!own && before_) return before_->MessagePending(callee, elapsed, type);
        const bool cancels = own && rules_.cancels && rules_.cancels();
        return cancels ? PENDINGMSG_CANCELCALL : PENDINGMSG_WAITDEFPROCESS;
    }

  private:
    virtual ~Filter() = default;
    bool isInForce() const { return standing_ && (!rules_.apply || rules_.apply()); }

    CallRules rules_;
    Com<IMessageFilter> before_;
    bool standing_ = true;
    ULONG references_ = 1;
};

CallFilter::CallFilter(CallRules rules) : filter_(Com<Filter>::adopt(new Filter(std::move(rules)))) {
    Com<IMessageFilter> before;
    if (CoRegisterMessageFilter(filter_.get(), before.put()) == S_OK)
        filter_->stand(std::move(before));
    else
        filter_.reset();
}

CallFilter::~CallFilter() {
    if (!filter_) return;
    filter_->retire();
    Com<IMessageFilter> ended;
    CoRegisterMessageFilter(filter_->before(), ended.put());
    if (ended.get() != filter_.get()) CoRegisterMessageFilter(ended.get(), nullptr);
}

}  // namespace zelbar
