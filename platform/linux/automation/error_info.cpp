#include <new>
#include <string>
#include <utility>

#include "platform/linux/automation/counted.h"

namespace {

BSTR Copied(BSTR text) {
    return text != nullptr ? SysAllocStringLen(text, SysStringLen(text)) : text;
}

class ErrorObject final
    : public mavrin2::platform::automation::Counted<ICreateErrorInfo, IErrorInfo> {
public:
    STDMETHODIMP SetGUID(REFGUID guid) override {
        guid_ = guid;
        return S_OK;
    }
    STDMETHODIMP SetSource(LPOLESTR source) override { return Set(source_, source); }
    STDMETHODIMP SetDescription(LPOLESTR text) override { return Set(description_, text); }
    STDMETHODIMP SetHelpFile(LPOLESTR helpFile) override { return Set(helpFile_, helpFile); }
    STDMETHODIMP SetHelpContext(DWORD helpContext) override {
        helpContext_ = helpContext;
        return S_OK;
    }

    STDMETHODIMP GetGUID(GUID* guid) override {
        if (guid == nullptr) return E_INVALIDARG;
        *guid = guid_;
        return S_OK;
    }
    STDMETHODIMP GetSource(BSTR* source) override { return Get(source_, source); }
    STDMETHODIMP GetDescription(BSTR* text) override { return Get(description_, text); }
    STDMETHODIMP GetHelpFile(BSTR* helpFile) override { return Get(helpFile_, helpFile); }
    STDMETHODIMP GetHelpContext(DWORD* helpContext) override {
        if (helpContext == nullptr) return E_INVALIDARG;
        *helpContext = helpContext_;
        return S_OK;
    }

private:
    ~ErrorObject() override {
        SysFreeString(source_);
        SysFreeString(description_);
        SysFreeString(helpFile_);
    }

    void* Find(REFIID iid) override {
        if (iid == IID_ICreateErrorInfo) return static_cast<ICreateErrorInfo*>(this);
        return iid == IID_IErrorInfo ? static_cast<IErrorInfo*>(this) : nullptr;
    }

    static HRESULT Set(BSTR& field, LPOLESTR text) {
        return SysReAllocString(&field, text) != FALSE ? S_OK : E_OUTOFMEMORY;
    }
    static HRESULT Get(BSTR field, BSTR* text) {
        if (text == nullptr) return E_INVALIDARG;
        *text = Copied(field);
        return field == nullptr || *text != nullptr ? S_OK : E_OUTOFMEMORY;
    }

    GUID guid_ = {};
    BSTR source_ = nullptr;
    BSTR description_ = nullptr;
    BSTR helpFile_ = nullptr;
    DWORD helpContext_ = 0;
};

// The error object of one thread, released with it.
class Slot {
public:
    Slot() = default;
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;
    ~Slot() { Put(nullptr); }

    void Put(IErrorInfo* error) {
        if (error != nullptr) error->AddRef();
        // Emptied before the release, which may come back here.
        if (IErrorInfo* const old = std::exchange(error_, error)) old->Release();
    }
    IErrorInfo* Take() { return std::exchange(error_, nullptr); }

private:
    IErrorInfo* error_ = nullptr;
};

thread_local Slot CurrentError;

}  // namespace

HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* error) {
    if (reserved != 0) return E_INVALIDARG;
    CurrentError.Put(error);
    return S_OK;
}

HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** error) {
    if (reserved != 0 || error == nullptr) return E_INVALIDARG;
    *error = CurrentError.Take();
    return *error != nullptr ? S_OK : S_FALSE;
}

HRESULT CreateErrorInfo(ICreateErrorInfo** error) {
    if (error == nullptr) return E_INVALIDARG;
    *error = new (std::nothrow) ErrorObject;
    return *error != nullptr ? S_OK : E_OUTOFMEMORY;
}
