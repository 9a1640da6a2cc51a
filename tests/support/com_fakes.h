#pragma once

#include <functional>

#include "automation/event_sink.h"

namespace mavrin2::tests {

// Objects that belong to a test, mostly on its stack; others only count on them.

template <class... Interfaces>
class Fake : public automation::Implements<Interfaces...> {
public:
    STDMETHODIMP_(ULONG) AddRef() final { return ++References; }
    STDMETHODIMP_(ULONG) Release() final { return --References; }

    ULONG References = 0;
};

using FakeSink = automation::EventReceiver<Fake<IDispatch>>;

// An object that has another one inside and passes on what it does not know itself.
class FakeOuter : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) final {
        *object = nullptr;
        if (IsEqualGUID(iid, IID_IUnknown) || (Knows && Knows(iid))) {
            AddRef();
            *object = static_cast<IUnknown*>(this);
            return S_OK;
        }
        return Inner && !(Hides && Hides(iid)) ? Inner->QueryInterface(iid, object) : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() final { return ++References; }
    STDMETHODIMP_(ULONG) Release() final { return --References; }

    ULONG References = 0;
    automation::ComPtr<IUnknown> Inner;
    std::function<bool(REFIID)> Knows;
    std::function<bool(REFIID)> Hides;
};

}  // namespace mavrin2::tests
