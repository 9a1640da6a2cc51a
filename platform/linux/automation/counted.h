#pragma once

#include <atomic>

#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/status.h"

namespace mavrin2::platform::automation {

// The base of the objects that this system makes itself: it lives from `new` to the last Release,
// on any thread.
template <class First, class... Others>
class Counted : public First, public Others... {
public:
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) final {
        if (object == nullptr) return E_POINTER;
        *object = iid == IID_IUnknown ? static_cast<First*>(this) : Find(iid);
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() final { return ++references_; }
    STDMETHODIMP_(ULONG) Release() final {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

protected:
    Counted() = default;
    virtual ~Counted() = default;

    // The interface of that identifier; null if the object has none.
    virtual void* Find(REFIID iid) = 0;

private:
    std::atomic<ULONG> references_ = 1;
};

}  // namespace mavrin2::platform::automation
