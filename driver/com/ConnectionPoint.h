#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>

#include "automation/Com.h"
#include "com/ModuleState.h"

namespace zelbar {

/// The one connection point of an object that declares an event interface: clients that listen get a working
/// subscription. Nothing is ever raised through it. It lives inside its owner and shares the owner's count.
class ConnectionPoint final : public IConnectionPointContainer, public IConnectionPoint {
  public:
    ConnectionPoint(IUnknown& owner, const IID& events) : owner_(owner), events_(events) {}

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return owner_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return owner_.Release(); }

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** result) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** result) noexcept override;

    STDMETHODIMP GetConnectionInterface(IID* result) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** result) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** result) noexcept override;

  private:
    IUnknown& owner_;
    IID events_;
    std::map<DWORD, Com<IUnknown>> sinks_;
    DWORD lastCookie_ = 0;
};

}  // namespace zelbar
