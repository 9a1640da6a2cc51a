#pragma once

#include <memory>
#include <span>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/object.h"

namespace mavrin2::automation {

// The sinks that are connected for one outgoing interface. The point is an object of its own that
// lives and dies with the object whose point it is.
class ConnectionPoint final : public IConnectionPoint {
public:
    // `owner` is the object's identity, `container` its IConnectionPointContainer.
    ConnectionPoint(IUnknown* owner, IConnectionPointContainer* container, const IID& outgoing)
        : owner_(owner), container_(container), outgoing_(outgoing) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;
    ~ConnectionPoint() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return owner_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_->Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

    const IID& Outgoing() const { return outgoing_; }
    // The identity of the object whose point this is.
    IUnknown* Owner() const { return owner_; }

    // The places in the array of connections, those that were given up among them.
    std::size_t Places() const { return connections_.size(); }
    // The sink at a place, through the outgoing interface; empty where there is none (any more).
    ComPtr<IUnknown> SinkAt(std::size_t place) const;

private:
    struct Connection {
        DWORD Cookie;
        ComPtr<IUnknown> Sink;  // empty after it was disconnected: others keep their places
    };

    IUnknown* owner_;
    IConnectionPointContainer* container_;
    const IID& outgoing_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

// The points of one object.
class ConnectionPoints final : public InterfacePart<IConnectionPointContainer> {
public:
    ConnectionPoints(IUnknown* identity, std::initializer_list<const IID*> outgoing);

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    // The point made for the n-th outgoing interface.
    ConnectionPoint& At(std::size_t index) { return *points_[index]; }

private:
    std::vector<std::unique_ptr<ConnectionPoint>> points_;
};

// Calls a method of a dispatch interface on every connected sink, in the order of connecting.
// Arguments stand in the order of the declaration. Returns the status of the last call made, or
// success when no sink is connected; a sink that fails stops nothing, and one that lets the object
// go does so only when all have been called.
HRESULT FireEvent(const ConnectionPoint& point, DISPID event, std::span<const VARIANT> arguments);

}  // namespace mavrin2::automation
