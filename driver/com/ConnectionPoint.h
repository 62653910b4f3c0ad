#pragma once

#include <windows.h>

#include <ocidl.h>

#include <vector>

#include "automation/Com.h"
#include "com/Enumerator.h"

namespace zelbar {

/// The one connection point of an object that declares an event interface: clients that listen get a working
/// subscription. Nothing is ever raised through it. It lives inside its owner and shares the owner's count.
///
/// The container is a face of the owner; the point is a COM object of its own, which another apartment can
/// tell from the owner.
class ConnectionPoint final : public IConnectionPoint {
  public:
    ConnectionPoint(IUnknown& owner, const IID& events) : container_(*this, owner), events_(events) {}

    /// The face that the owner shows for IConnectionPointContainer.
    IConnectionPointContainer& container() noexcept { return container_; }

    STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return container_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return container_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* result) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** result) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** result) noexcept override;

  private:
    class Container final : public IConnectionPointContainer {
      public:
        Container(ConnectionPoint& point, IUnknown& owner) : point_(point), owner_(owner) {}

        STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
            return owner_.QueryInterface(id, result);
        }
        STDMETHODIMP_(ULONG) AddRef() noexcept override { return owner_.AddRef(); }
        STDMETHODIMP_(ULONG) Release() noexcept override { return owner_.Release(); }

        STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** result) noexcept override;
        STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** result) noexcept override;

      private:
        ConnectionPoint& point_;
        IUnknown& owner_;
    };

    Container container_;
    IID events_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

}  // namespace zelbar
