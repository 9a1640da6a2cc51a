#pragma once

#include <atomic>
#include <memory>
#include <type_traits>
#include <utility>

#include "automation/counted.h"
#include "automation/dispatch.h"
#include "automation/guarded.h"
#include "automation/module.h"
#include "automation/type_information.h"

namespace mavrin2::automation {

// Reports that one interface gives error information.
class ErrorInfoSupport final : public InterfacePart<ISupportErrorInfo> {
public:
    ErrorInfoSupport(IUnknown* identity, const IID& supported)
        : InterfacePart(identity), supported_(supported) {}

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return IsEqualGUID(iid, supported_) ? S_OK : S_FALSE;
    }

private:
    const IID& supported_;
};

// The base of every automation object of this project: reference count, identity (its own, or that
// of an outer object that aggregates it), late binding from the description of `Primary`, and
// error information. `Derived` is final and is made by Make or by a class object:
// its constructor takes `IUnknown* outer` (null when it is not aggregated) and what Make passes on.
//
// `Derived` may define
//   HRESULT FinalConstruct()           after construction, where failure can be reported;
//   void FinalRelease()                before destruction, while it is still whole;
//   void* FindInterface(REFIID)        further interfaces, each of which forwards its identity.
template <class Derived, class Primary>
class AutomationObject : public Primary {
public:
    using PrimaryInterface = Primary;

    explicit AutomationObject(IUnknown* outer)
        : inner_(*this),
          identity_(outer ? outer : &inner_),
          errorInfo_(identity_, IidOf<Primary>()) {}
    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;

    // A new object with one reference, through the concrete type. Throws StatusError when its
    // final construction fails.
    template <class... Arguments>
    static ComPtr<Derived> Make(Arguments&&... arguments) {
        ComPtr<Derived> object =
            ComPtr<Derived>::Adopt(new Derived(nullptr, std::forward<Arguments>(arguments)...));
        ThrowIfFailed(object->Complete());
        return object;
    }

    // As a class object creates: alone, or as the inner object of `outer`, which must then ask for
    // IUnknown.
    template <class... Arguments>
    static HRESULT Create(IUnknown* outer, REFIID iid, void** object, Arguments&&... arguments) {
        return Guarded([&]() -> HRESULT {
            if (!object) return E_POINTER;
            *object = nullptr;
            if (outer && !IsEqualGUID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
            auto* made = new Derived(outer, std::forward<Arguments>(arguments)...);
            const ComPtr<IUnknown> held = ComPtr<IUnknown>::Adopt(&made->inner_);
            if (const HRESULT status = made->Complete(); FAILED(status)) return status;
            return made->inner_.QueryInterface(iid, object);
        });
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) final {
        return identity_->QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() final { return identity_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() final { return identity_->Release(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) final {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** information) final {
        return Guarded([&]() -> HRESULT {
            if (!information) return E_POINTER;
            *information = nullptr;
            if (index != 0) return DISP_E_BADINDEX;
            *information = TypeInformationOf(DescriptionOf<Primary>()).Detach();
            return *information ? S_OK : E_NOTIMPL;
        });
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) final {
        return FindNames(DescriptionOf<Primary>(), iid, names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) final {
        return InvokeMember(DescriptionOf<Primary>(), static_cast<Primary*>(this), iid,
                            {member, flags, arguments, result, exception, badArgument});
    }

protected:
    ~AutomationObject() = default;

    // The identity that other objects see.
    IUnknown* Identity() const { return identity_; }

private:
    // The object's own IUnknown; every other interface forwards to the identity.
    class Inner final : public IUnknown {
    public:
        explicit Inner(AutomationObject& object) : object_(object) {}

        STDMETHODIMP QueryInterface(REFIID iid, void** result) override {
            if (!result) return E_POINTER;
            *result = object_.Find(iid);
            if (!*result) return E_NOINTERFACE;
            static_cast<IUnknown*>(*result)->AddRef();
            return S_OK;
        }
        STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
        STDMETHODIMP_(ULONG) Release() override {
            const ULONG left = --count_;
            if (left == 0) {
                // Code that the teardown calls may add and release references.
                count_ = 1;
                object_.Destroy();
            }
            return left;
        }

    private:
        AutomationObject& object_;
        std::atomic<ULONG> count_ = 1;
    };

    Derived& Self() { return static_cast<Derived&>(*this); }

    void* Find(REFIID iid) {
        if (IsEqualGUID(iid, IID_IUnknown)) return static_cast<IUnknown*>(&inner_);
        if (IsEqualGUID(iid, IidOf<Primary>()) || IsEqualGUID(iid, IID_IDispatch))
            return static_cast<Primary*>(this);
        if (IsEqualGUID(iid, IID_ISupportErrorInfo))
            return static_cast<ISupportErrorInfo*>(&errorInfo_);
        if constexpr (requires { Self().FindInterface(iid); }) return Self().FindInterface(iid);
        return nullptr;
    }

    HRESULT Complete() {
        if constexpr (requires { Self().FinalConstruct(); }) return Self().FinalConstruct();
        return S_OK;
    }

    void Destroy() {
        if constexpr (requires { Self().FinalRelease(); }) Self().FinalRelease();
        delete &Self();
    }

    ModuleLock alive_;
    Inner inner_;
    IUnknown* identity_;
    ErrorInfoSupport errorInfo_;
};

}  // namespace mavrin2::automation
