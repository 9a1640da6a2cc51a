#pragma once

#include <functional>
#include <string>

#include "automation/com_ptr.h"
#include "platform/offscreen_window.h"

namespace mavrin2::tests {

// A container with one place in its window, which writes down the control's calls, and
// can do anything in the middle of it. Belongs to the test; others only count on it.
class RecordingContainer final : public IOleClientSite,
                                 public IOleInPlaceSite,
                                 public IOleInPlaceFrame,
                                 public IAdviseSinkEx {
public:
    RecordingContainer() = default;
    RecordingContainer(const RecordingContainer&) = delete;
    RecordingContainer& operator=(const RecordingContainer&) = delete;

    // How it behaves.
    std::unique_ptr<platform::OffscreenWindow> Window =
        std::make_unique<platform::OffscreenWindow>(200, 100);
    RECT Place{10, 20, 110, 70};
    RECT Clip{0, 0, 200, 100};
    bool HasInPlaceSite = true;
    std::string Failing;  // the call that fails, with FailingStatus
    HRESULT FailingStatus = E_ACCESSDENIED;
    // Runs `act` once, inside the call of that name.
    void InCall(const std::string& name, std::function<void()> act) {
        hooked_ = name;
        act_ = std::move(act);
    }

    // The names of the calls since the last time, with blanks between.
    std::string Take() { return std::exchange(calls_, {}); }
    IOleClientSite* Site() { return this; }
    IAdviseSinkEx* Sink() { return this; }
    RECT Wanted{};         // by OnPosRectChange
    int Activations = 0;   // that were not ended
    ULONG References = 0;  // of others

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++References; }
    STDMETHODIMP_(ULONG) Release() override { return --References; }

    STDMETHODIMP SaveObject() override { return Note("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP ShowObject() override { return Note("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return Note("CanInPlaceActivate"); }
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override { return Note("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT position) override {
        Wanted = *position;
        return Note("OnPosRectChange");
    }

    STDMETHODIMP GetBorder(RECT*) override { return E_NOTIMPL; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return Note("SetBorderSpace"); }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        return Note(object ? "SetActiveObject" : "SetActiveObject(none)");
    }
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return E_NOTIMPL; }
    STDMETHODIMP EnableModeless(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) override { return E_NOTIMPL; }

    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    STDMETHODIMP_(void) OnViewChange(DWORD aspect, LONG index) override {
        Note("OnViewChange(" + std::to_string(aspect) + ", " + std::to_string(index) + ")");
    }
    STDMETHODIMP_(void) OnRename(IMoniker*) override {}
    STDMETHODIMP_(void) OnSave() override { Note("OnSave"); }
    STDMETHODIMP_(void) OnClose() override { Note("OnClose"); }
    STDMETHODIMP_(void) OnViewStatusChange(DWORD) override {}

private:
    HRESULT Note(const std::string& name);

    std::string calls_;
    std::string hooked_;
    std::function<void()> act_;
};

}  // namespace mavrin2::tests
