#include "com/ConnectionPoint.h"

#include <olectl.h>

namespace zelbar {

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID id, void** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    // Asked for as a connection point it is an object of its own; for the rest it is a face of its owner.
    if (id == __uuidof(IConnectionPoint))
        *result = static_cast<IConnectionPoint*>(this);
    else if (id == __uuidof(IConnectionPointContainer))
        *result = static_cast<IConnectionPointContainer*>(this);
    else
        return owner_.QueryInterface(id, result);
    AddRef();
    return S_OK;
}

// A client that enumerates wants to know what it may listen to; the type library tells it as well.
STDMETHODIMP ConnectionPoint::EnumConnectionPoints(IEnumConnectionPoints** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ConnectionPoint::FindConnectionPoint(REFIID id, IConnectionPoint** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (id != events_) return CONNECT_E_NOCONNECTION;
    *result = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* result) noexcept {
    if (!result) return E_POINTER;
    *result = events_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** result) noexcept {
    if (!result) return E_POINTER;
    *result = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    try {
        Com<IUnknown> listener;
        if (FAILED(sink->QueryInterface(events_, reinterpret_cast<void**>(listener.put()))) &&
            FAILED(sink->QueryInterface(__uuidof(IDispatch), reinterpret_cast<void**>(listener.put()))))
            return CONNECT_E_CANNOTCONNECT;
        sinks_[++lastCookie_] = listener;
        *cookie = lastCookie_;
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto found = sinks_.find(cookie);
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    // Erased first: the sink's release may come back here.
    const Com<IUnknown> listener = found->second;
    sinks_.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    return E_NOTIMPL;
}

}  // namespace zelbar
