#pragma once

#include <string>

#include "automation/class_information.h"
#include "automation/connection_points.h"
#include "automation/interface_description.h"
#include "automation/object.h"
#include "platform/automation.h"

namespace mavrin2::tests {

enum class ErrorConstants : std::int32_t { FILEACCESS = -18 };

inline constexpr IID IID_FakeEditor = {
    0x5e1f0101, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
inline constexpr IID DIID_FakeEditorEvents = {
    0x5e1f0102, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
inline constexpr CLSID CLSID_FakeEditor = {
    0x5e1f0103, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};

// As much of the sound editor as the commands use, on files that are a line of text:
//
//   KIND RATE CHANNELS FRAMES
//
// Saving writes the kind and the frames from where to where. Some kinds behave badly: BROKEN cannot
// be opened, LOST leaves no document, FULL fails while it is saved, EMPTY saves nothing, and SLOW
// is saved until it is stopped; it says `begun` on standard output when it begins.
struct IFakeEditor : public IDispatch {
    static constexpr IID Id = IID_FakeEditor;

    virtual HRESULT STDMETHODCALLTYPE Open(BSTR fileName) = 0;
    virtual HRESULT STDMETHODCALLTYPE Save(BSTR fileName, VARIANT_BOOL Selected) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stop() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TempDirectory(BSTR* Value) = 0;
    // The parts are the editor itself: who calls by name sees no difference.
    virtual HRESULT STDMETHODCALLTYPE get_FileInfo(IFakeEditor** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Position(IFakeEditor** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_FormatString(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Frequency(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TotalSamples(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Selected(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_StartSelect(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EndSelect(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LastErrorNum(ErrorConstants* Value) = 0;
};

const automation::LibraryDescription& FakeEditorLibrary();

class FakeEditor final : public automation::AutomationObject<FakeEditor, IFakeEditor> {
public:
    explicit FakeEditor(IUnknown* outer);

    void* FindInterface(REFIID iid);

    STDMETHODIMP Open(BSTR fileName) override;
    STDMETHODIMP Save(BSTR fileName, VARIANT_BOOL Selected) override;
    STDMETHODIMP Stop() override;
    STDMETHODIMP get_TempDirectory(BSTR* Value) override;
    STDMETHODIMP get_FileInfo(IFakeEditor** Value) override;
    STDMETHODIMP get_Position(IFakeEditor** Value) override;
    STDMETHODIMP get_FormatString(BSTR* Value) override;
    STDMETHODIMP get_Frequency(LONG* Value) override;
    STDMETHODIMP get_Channels(LONG* Value) override;
    STDMETHODIMP get_TotalSamples(LONG* Value) override;
    STDMETHODIMP put_Selected(VARIANT_BOOL Value) override;
    STDMETHODIMP put_StartSelect(LONG Value) override;
    STDMETHODIMP put_EndSelect(LONG Value) override;
    STDMETHODIMP get_LastErrorNum(ErrorConstants* Value) override;

private:
    void Progress(SHORT percent);
    HRESULT Fail(HRESULT status, const char* description);

    bool open_ = false;
    bool stopped_ = false;
    std::string kind_;
    LONG rate_ = 8000;
    LONG channels_ = 0;
    LONG frames_ = 0;
    VARIANT_BOOL selected_ = VARIANT_FALSE;
    LONG start_ = 0;
    LONG end_ = 0;
    automation::ConnectionPoints points_;
    automation::ClassInformation classInformation_;
};

}  // namespace mavrin2::tests

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<tests::IFakeEditor>();
template <>
const EnumerationDescription& EnumerationOf<tests::ErrorConstants>();
}  // namespace mavrin2::automation
