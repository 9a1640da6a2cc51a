#pragma once

#include <atomic>
#include <cstddef>

#include "automation/com_ptr.h"
#include "automation/module.h"

namespace mavrin2::server {

// The positional arguments of a companion's event, read as 32-bit integers.
class EventArguments {
public:
    explicit EventArguments(DISPPARAMS* parameters) : parameters_(parameters) {}

    // False when there is no such argument or it is no number; `value` is then unchanged.
    bool Read(UINT position, LONG& value) const;

private:
    DISPPARAMS* parameters_;
};

// Receives the events of one companion and turns each into a call on the control. Lives as long as
// somebody holds it; from Detach on it answers that it implements nothing.
class CompanionSink : public IDispatch {
public:
    CompanionSink(const CompanionSink&) = delete;
    CompanionSink& operator=(const CompanionSink&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) final;
    STDMETHODIMP_(ULONG) AddRef() final { return ++count_; }
    STDMETHODIMP_(ULONG) Release() final;

    // Nobody browses a sink.
    STDMETHODIMP GetTypeInfoCount(UINT*) final { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) final { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) final { return E_NOTIMPL; }

    STDMETHODIMP Invoke(DISPID event, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) final;

    const IID& EventInterface() const { return events_; }
    void Detach() { attached_ = false; }

protected:
    explicit CompanionSink(const IID& events) : events_(events) {}
    virtual ~CompanionSink() = default;

    // E_NOTIMPL for an event that is unknown or whose arguments cannot be read.
    virtual HRESULT Handle(DISPID event, const EventArguments& arguments) = 0;

private:
    const IID& events_;
    bool attached_ = true;
    std::atomic<ULONG> count_ = 0;
    automation::ModuleLock alive_;
};

// A sink's connection with its companion, from Connect to Disconnect or the end.
class SinkConnection {
public:
    SinkConnection() = default;
    SinkConnection(const SinkConnection&) = delete;
    SinkConnection& operator=(const SinkConnection&) = delete;
    ~SinkConnection() { Disconnect(); }

    // A companion without that event interface is simply never heard.
    void Connect(IUnknown* companion, automation::ComPtr<CompanionSink> sink);
    void Disconnect();

private:
    automation::ComPtr<CompanionSink> sink_;
    automation::ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

}  // namespace mavrin2::server
