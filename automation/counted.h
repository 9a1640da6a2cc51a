#pragma once

#include <atomic>
#include <utility>

#include "automation/com_ptr.h"

namespace mavrin2::automation {

// An object that answers for IUnknown and for the listed interfaces. How it is counted is left to
// the class that derives from it.
template <class First, class... Others>
class Implements : public First, public Others... {
public:
    Implements(const Implements&) = delete;
    Implements& operator=(const Implements&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) final {
        if (!object) return E_POINTER;
        *object = FindAny(iid);
        if (!*object) return E_NOINTERFACE;
        static_cast<First*>(this)->AddRef();
        return S_OK;
    }

protected:
    Implements() = default;
    ~Implements() = default;

    // Answers for further identifiers: interfaces that a listed one extends, events of a sink.
    virtual void* FindMore(REFIID) { return nullptr; }

private:
    template <class Interface>
    void* FindOne(REFIID iid) {
        return IsEqualGUID(iid, IidOf<Interface>()) ? static_cast<Interface*>(this) : nullptr;
    }
    void* FindAny(REFIID iid) {
        void* found =
            IsEqualGUID(iid, IID_IUnknown) ? static_cast<First*>(this) : FindOne<First>(iid);
        ((found = found ? found : FindOne<Others>(iid)), ...);
        return found ? found : FindMore(iid);
    }
};

// The base of a plain counted object: it lives from MakeCounted to the last Release, on any thread.
// Automation objects have their own (object.h), since they can be aggregated.
template <class... Interfaces>
class Counted : public Implements<Interfaces...> {
public:
    STDMETHODIMP_(ULONG) AddRef() final { return ++count_; }
    STDMETHODIMP_(ULONG) Release() final {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

protected:
    Counted() = default;
    virtual ~Counted() = default;

private:
    std::atomic<ULONG> count_ = 1;
};

template <class Object, class... Arguments>
ComPtr<Object> MakeCounted(Arguments&&... arguments) {
    return ComPtr<Object>::Adopt(new Object(std::forward<Arguments>(arguments)...));
}

// An interface that an object implements in a separate class: a group of methods with its own
// state, while identity and lifetime are the object's.
template <class Interface>
class InterfacePart : public Interface {
public:
    explicit InterfacePart(IUnknown* identity) : identity_(identity) {}
    InterfacePart(const InterfacePart&) = delete;
    InterfacePart& operator=(const InterfacePart&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) final {
        return identity_->QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() final { return identity_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() final { return identity_->Release(); }

protected:
    ~InterfacePart() = default;
    IUnknown* Identity() const { return identity_; }

private:
    IUnknown* identity_;
};

}  // namespace mavrin2::automation
