#include "control/server/container/ole_object.h"

#include <algorithm>
#include <cstring>

#include "automation/enumeration.h"
#include "automation/text.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::server {
namespace {

using automation::ComPtr;

// A text that the caller frees.
LPOLESTR TaskText(automation::OleStringView text) {
    const std::size_t bytes = text.size() * sizeof(OLECHAR);
    auto* copy = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes + sizeof(OLECHAR)));
    if (!copy) throw std::bad_alloc();
    std::memcpy(copy, text.data(), bytes);
    copy[text.size()] = 0;
    return copy;
}

struct Verb {
    LONG Number;
    const OLECHAR* Name;
};

OLEVERB GiveVerb(const Verb& verb) {
    constexpr DWORD kNeverDirties = 1;
    constexpr DWORD kOnContainerMenu = 2;
    return {verb.Number, TaskText(verb.Name), 0, kNeverDirties | kOnContainerMenu};
}

STATDATA GiveConnection(const Notifications::Connection& connection) {
    STATDATA data = {};
    data.formatetc.lindex = -1;
    data.pAdvSink = ComPtr<IAdviseSink>(connection.Sink).Detach();
    data.dwConnection = connection.Number;
    return data;
}

using VerbEnumeration = automation::Enumeration<IEnumOLEVERB, Verb, OLEVERB, &GiveVerb>;
using ConnectionEnumeration =
    automation::Enumeration<IEnumSTATDATA, Notifications::Connection, STATDATA, &GiveConnection>;

}  // namespace

STDMETHODIMP OleObject::SetClientSite(IOleClientSite* site) {
    return Run([&] {
        ComPtr<IOleClientSite> next(site);
        if (next.Get() != state_.Site.Get()) activation_.Deactivate();
        // The one before is released last: it may come back here.
        std::swap(state_.Site, next);
    });
}

STDMETHODIMP OleObject::GetClientSite(IOleClientSite** site) {
    if (!site) return E_POINTER;
    *site = ComPtr<IOleClientSite>(state_.Site).Detach();
    return S_OK;
}

STDMETHODIMP OleObject::Close(DWORD saveOption) {
    return Run([&]() -> HRESULT {
        activation_.Deactivate();
        if (state_.Changed && saveOption != OLECLOSE_NOSAVE) {
            const ComPtr<IOleClientSite> site = state_.Site;
            if (site && SUCCEEDED(site->SaveObject())) notifications_.TellSaved();
        }
        notifications_.TellClosed();
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetClipboardData(DWORD, IDataObject** data) {
    if (data) *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND, LPCRECT) {
    return Run([&]() -> HRESULT {
        switch (verb) {
            case OLEIVERB_PRIMARY:
            case OLEIVERB_UIACTIVATE:
                return activation_.Activate(true);
            case OLEIVERB_SHOW:
            case OLEIVERB_INPLACEACTIVATE:
                return activation_.Activate(false);
            case OLEIVERB_HIDE:
                activation_.Hide();
                return S_OK;
            case OLEIVERB_DISCARDUNDOSTATE:
                return S_OK;  // the control keeps no state for the container's undo
            default: {
                if (verb < 0) return E_NOTIMPL;
                const HRESULT status = activation_.Activate(true);
                return status == S_OK ? OLEOBJ_S_INVALIDVERB : status;
            }
        }
    });
}

STDMETHODIMP OleObject::EnumVerbs(IEnumOLEVERB** verbs) {
    return Run([&]() -> HRESULT {
        if (!verbs) return E_POINTER;
        *verbs = new VerbEnumeration({Verb{OLEIVERB_PRIMARY, OLESTR("&Edit")}});
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetUserClassID(CLSID* clsid) {
    if (!clsid) return E_POINTER;
    *clsid = interfaces::CLSID_Mavrin2;
    return S_OK;
}

STDMETHODIMP OleObject::GetUserType(DWORD, LPOLESTR* type) {
    return Run([&]() -> HRESULT {
        if (!type) return E_POINTER;
        *type = nullptr;
        for (const automation::ClassEntry& one : automation::ThisModule().Classes)
            if (IsEqualGUID(one.Id, interfaces::CLSID_Mavrin2))
                *type = TaskText(automation::ToOle(std::string_view(one.Description)));
        return *type ? S_OK : E_UNEXPECTED;
    });
}

STDMETHODIMP OleObject::SetExtent(DWORD aspect, SIZEL* size) {
    return Run([&]() -> HRESULT {
        if (!size) return E_POINTER;
        if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
        if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
        if (size->cx == state_.Extent.cx && size->cy == state_.Extent.cy) return S_OK;
        state_.Extent = *size;
        state_.Changed = true;
        activation_.RequestPlace();
        notifications_.TellViewChanged();
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetExtent(DWORD aspect, SIZEL* size) {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *size = state_.Extent;
    return S_OK;
}

STDMETHODIMP OleObject::Advise(IAdviseSink* sink, DWORD* connection) {
    return Run([&]() -> HRESULT {
        if (!sink || !connection) return E_POINTER;
        *connection = notifications_.Connect(sink);
        return S_OK;
    });
}

STDMETHODIMP OleObject::Unadvise(DWORD connection) {
    return Run([&]() -> HRESULT {
        return notifications_.Disconnect(connection) ? S_OK : OLE_E_NOCONNECTION;
    });
}

STDMETHODIMP OleObject::EnumAdvise(IEnumSTATDATA** connections) {
    return Run([&]() -> HRESULT {
        if (!connections) return E_POINTER;
        *connections = new ConnectionEnumeration(notifications_.Connections());
        return S_OK;
    });
}

STDMETHODIMP OleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status) return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
    return S_OK;
}

}  // namespace mavrin2::server
