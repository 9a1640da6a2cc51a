#include "automation/connection_points.h"

#include <algorithm>

#include "automation/enumeration.h"
#include "automation/guarded.h"
#include "automation/variant.h"

namespace mavrin2::automation {
namespace {

IConnectionPoint* GivePoint(const ComPtr<IConnectionPoint>& point) {
    return ComPtr<IConnectionPoint>(point).Detach();
}

using Connected = std::pair<ComPtr<IUnknown>, DWORD>;

CONNECTDATA GiveConnection(const Connected& connection) {
    return {ComPtr<IUnknown>(connection.first).Detach(), connection.second};
}

using PointEnumeration =
    Enumeration<IEnumConnectionPoints, ComPtr<IConnectionPoint>, IConnectionPoint*, &GivePoint>;
using ConnectionEnumeration =
    Enumeration<IEnumConnections, Connected, CONNECTDATA, &GiveConnection>;

}  // namespace

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualGUID(iid, IID_IUnknown) && !IsEqualGUID(iid, IID_IConnectionPoint))
        return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IConnectionPoint*>(this);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid) return E_POINTER;
    *iid = outgoing_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = ComPtr<IConnectionPointContainer>(container_).Detach();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    return Guarded([&]() -> HRESULT {
        if (!sink || !cookie) return E_POINTER;
        *cookie = 0;
        ComPtr<IUnknown> outgoing;
        if (FAILED(sink->QueryInterface(outgoing_, outgoing.PutVoid())))
            return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({++lastCookie_, std::move(outgoing)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::ranges::find_if(
        connections_, [&](const Connection& c) { return c.Cookie == cookie && c.Sink; });
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    // Released last: the sink may disconnect others while it goes.
    const ComPtr<IUnknown> gone = std::move(found->Sink);
    while (!connections_.empty() && !connections_.back().Sink)
        connections_.pop_back();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    return Guarded([&]() -> HRESULT {
        if (!connections) return E_POINTER;
        std::vector<Connected> items;
        for (const Connection& c : connections_)
            if (c.Sink) items.emplace_back(c.Sink, c.Cookie);
        *connections = new ConnectionEnumeration(std::move(items));
        return S_OK;
    });
}

ComPtr<IUnknown> ConnectionPoint::SinkAt(std::size_t place) const {
    return place < connections_.size() ? connections_[place].Sink : nullptr;
}

ConnectionPoints::ConnectionPoints(IUnknown* identity, std::initializer_list<const IID*> outgoing)
    : InterfacePart(identity) {
    for (const IID* iid : outgoing)
        points_.push_back(std::make_unique<ConnectionPoint>(identity, this, *iid));
}

STDMETHODIMP ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return Guarded([&]() -> HRESULT {
        if (!points) return E_POINTER;
        std::vector<ComPtr<IConnectionPoint>> items;
        for (const auto& point : points_)
            items.emplace_back(point.get());
        *points = new PointEnumeration(std::move(items));
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    for (const auto& candidate : points_) {
        if (!IsEqualGUID(candidate->Outgoing(), iid)) continue;
        *point = ComPtr<IConnectionPoint>(candidate.get()).Detach();
        return S_OK;
    }
    return CONNECT_E_NOCONNECTION;
}

HRESULT FireEvent(const ConnectionPoint& point, DISPID event, std::span<const VARIANT> arguments) {
    HRESULT last = S_OK;
    const ComPtr<IUnknown> held(point.Owner());
    const std::size_t places = point.Places();
    for (std::size_t i = 0; i < places; ++i) {
        const ComPtr<IUnknown> sink = point.SinkAt(i);
        if (!sink) continue;
        // The last argument comes first in a call.
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        Variant result;
        // An outgoing dispatch interface has the virtual table of IDispatch.
        last = static_cast<IDispatch*>(sink.Get())
                   ->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                            &result, nullptr, nullptr);
    }
    return last;
}

}  // namespace mavrin2::automation
