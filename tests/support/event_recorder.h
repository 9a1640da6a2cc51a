#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <utility>

#include "automation/com_ptr.h"

namespace mavrin2::tests {

// A sink of the control's events. What it hears it writes down: "10%" for BlockOperation, "end" for
// EndOperation, "position" for ChangePosition, each with a space before it but the first; anything
// that is not called as it should be is written down as "?".
class EventRecorder final : public IDispatch {
public:
    EventRecorder() = default;
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    // Connects with an object's point for the control's events, until the object goes.
    void Connect(IUnknown* object);

    std::string Log;
    // What was heard since the last time.
    std::string Take() { return std::exchange(Log, {}); }

    // Once, inside the nth event from now (1: the next one).
    void InEvent(int nth, std::function<void()> action) {
        countdown_ = nth;
        action_ = std::move(action);
    }
    // Whether it came to that.
    bool Acted() const { return countdown_ <= 0; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID reserved, LCID locale, WORD flags,
                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) override;

private:
    ~EventRecorder() = default;

    std::atomic<ULONG> count_ = 0;
    int countdown_ = 0;
    std::function<void()> action_;
};

}  // namespace mavrin2::tests
