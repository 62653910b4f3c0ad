#pragma once

#include <PIMDriverAbstract.h>
#include <windows.h>

#include <atomic>
#include <functional>
#include <vector>

#include "tests/com/Description.h"

namespace hostile {

/// An object of a client's that does not behave. Lives as long as its holder; `references` must be 1 again at
/// the end.
class Foreign final : public IDispatch {
  public:
    enum class Manner {
        Fails,      ///< Every member.
        Excepts,    ///< The same, with a description that is none.
        Reenters,   ///< Calls back before it fails.
        Lies,       ///< Every member works and gives something else each time.
        IsNothing,  ///< Has every interface, none of which is there.
        IsRubbish   ///< Has no interface, and says where it is.
    };

    static constexpr Manner kManners[] = {Manner::Fails, Manner::Excepts,   Manner::Reenters,
                                          Manner::Lies,  Manner::IsNothing, Manner::IsRubbish};

    explicit Foreign(Manner manner, std::function<void()> callBack = {})
        : manner_(manner), callBack_(std::move(callBack)) {}
    Foreign(const Foreign&) = delete;
    Foreign& operator=(const Foreign&) = delete;

    /// Lets it have all slots of `Contact`, which behave as the rest of it does.
    void implement(const zelbar::InterfaceDescription& contact);

    std::atomic<long> references{1};

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return static_cast<ULONG>(++references); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return static_cast<ULONG>(--references); }
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* exception,
                        UINT*) noexcept override;

  private:
    template <class... Words>
    static HRESULT __stdcall onSlot(Foreign* self, Words...) noexcept {
        return self->behave();
    }
    HRESULT behave() noexcept;

    Manner manner_;
    std::function<void()> callBack_;
    std::vector<void*> slots_;
    int lies_ = 0;
    bool isCalling_ = false;
};

}  // namespace hostile
