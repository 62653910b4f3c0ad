#include "com/ConnectionPoint.h"

#include <olectl.h>

#include <algorithm>

namespace zelbar {

STDMETHODIMP ConnectionPoint::Container::EnumConnectionPoints(IEnumConnectionPoints** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    try {
        using Walk = Enumerator<IEnumConnectionPoints, IConnectionPoint*, Com<IConnectionPoint>>;
        *result = new Walk({Com<IConnectionPoint>::share(&point_)});
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP ConnectionPoint::Container::FindConnectionPoint(REFIID id, IConnectionPoint** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (id != point_.events_) return CONNECT_E_NOCONNECTION;
    *result = Com<IConnectionPoint>::share(&point_).detach();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID id, void** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (id != __uuidof(IUnknown) && id != __uuidof(IConnectionPoint)) return E_NOINTERFACE;
    *result = Com<IConnectionPoint>::share(this).detach();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* result) noexcept {
    if (!result) return E_POINTER;
    *result = events_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** result) noexcept {
    if (!result) return E_POINTER;
    *result = Com<IConnectionPointContainer>::share(&container_).detach();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    try {
        const auto given = Com<IUnknown>::share(sink);
        auto listener = given.as<IUnknown>(events_);
        if (!listener) listener = given.as<IDispatch>();
        if (!listener) return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({lastCookie_ + 1, listener});
        *cookie = ++lastCookie_;
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    // Erased first: the sink's release may come back here.
    const Connection gone = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    try {
        *result = new Enumerator<IEnumConnections, CONNECTDATA, Connection>(connections_);
        return S_OK;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace zelbar
