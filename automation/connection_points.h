#pragma once

#include <memory>
#include <span>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/object.h"

namespace mavrin2::automation {

// The sinks that are connected for one outgoing interface. The point has its own identity but
// is a part of the object whose point it is.
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

    // Number of slots, including vacated ones.
    std::size_t Places() const { return connections_.size(); }
    // The sink in a slot, through the outgoing interface; null in a vacated slot.
    ComPtr<IUnknown> SinkAt(std::size_t place) const;

private:
    struct Connection {
        DWORD Cookie;
        ComPtr<IUnknown> Sink;  // null once disconnected: the others keep their slots
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

    // The point for the n-th outgoing interface.
    ConnectionPoint& At(std::size_t index) { return *points_[index]; }

private:
    std::vector<std::unique_ptr<ConnectionPoint>> points_;
};

// Calls a method of a dispatch interface on every connected sink, in the order of connecting.
// Arguments are in the order of declaration. Returns the status of the last call made, or success
// when no sink is connected. A sink that fails does not stop the others, and the object lives until
// all have been called.
HRESULT FireEvent(const ConnectionPoint& point, DISPID event, std::span<const VARIANT> arguments);

}  // namespace mavrin2::automation
