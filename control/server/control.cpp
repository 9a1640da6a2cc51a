#include "control/server/control.h"

#include <algorithm>

#include "automation/text.h"
#include "control/interfaces/events.h"
#include "control/interfaces/library.h"
#include "control/server/error_report.h"

namespace mavrin2::server {

using automation::Bstr;
using automation::ToPath;
using interfaces::ErrorConstants;
using interfaces::FormatTypeConstants;

CMavrin2::CMavrin2(IUnknown* outer, ControlEnvironment environment)
    : AutomationObject(outer),
      connectionPoints_(Identity(), {&interfaces::DIID_IMavrin2Events, &IID_IPropertyNotifySink}),
      classInformation_(Identity(), &interfaces::ControlLibrary, interfaces::CLSID_Mavrin2),
      parts_(std::move(environment), Identity(), connectionPoints_.At(0)),
      limitedSamples_(Identity(), [this] {
          const DocumentEditor* const editor = parts_.Editor.get();
          if (!editor) return std::int64_t{0};
          return editor->Edits.LimitedSamples() + editor->Conversion.LimitedSamples() +
                 parts_.Dusoro.LimitedSamples() + parts_.Kestrin.LimitedSamples();
      }) {}

HRESULT CMavrin2::FinalConstruct() {
    return parts_.Construct();
}

void CMavrin2::FinalRelease() {
    parts_.Teardown();
}

void* CMavrin2::FindInterface(REFIID iid) {
    if (void* part = parts_.Container.Find(iid)) return part;
    if (IsEqualGUID(iid, IID_IConnectionPointContainer))
        return static_cast<IConnectionPointContainer*>(&connectionPoints_);
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2))
        return static_cast<IProvideClassInfo2*>(&classInformation_);
    if (IsEqualGUID(iid, automation::ILimitedSamples::Id))
        return static_cast<automation::ILimitedSamples*>(&limitedSamples_);
    return nullptr;
}

// Runs a member's work. The control outlives it, whatever a host does in an event.
template <class Act>
HRESULT CMavrin2::Run(Act&& act) {
    return automation::Guarded([&]() -> HRESULT {
        const automation::ComPtr<IUnknown> held(Identity());
        if constexpr (std::is_void_v<decltype(act(*parts_.Editor))>) {
            act(*parts_.Editor);
            return S_OK;
        } else {
            return act(*parts_.Editor);
        }
    });
}

template <class Value, class Reader>
HRESULT CMavrin2::Read(Value* target, Reader&& read) {
    if (!target) return E_POINTER;
    return automation::Guarded([&] { *target = read(); });
}

// Gives a host one of the objects that the control keeps.
template <class Interface, class Object>
HRESULT CMavrin2::GetPart(Interface** target, const automation::ComPtr<Object>& object) {
    return Read(target, [&] { return object.template As<Interface>().Detach(); });
}

// Keeps a host's object in the place of the one there was.
template <class Interface>
HRESULT CMavrin2::PutPart(Interface* object, automation::ComPtr<Interface>& place) {
    return Run([&](DocumentEditor&) {
        if (object) place = automation::ComPtr<Interface>(object);
    });
}

STDMETHODIMP CMavrin2::New(interfaces::FrequencyConstants Frequency,
                           interfaces::ChannelsConstants nChannels) {
    return Run([&](DocumentEditor& editor) {
        return ReportError(editor.Opening.New(static_cast<std::int32_t>(Frequency),
                                              static_cast<std::int32_t>(nChannels)));
    });
}

STDMETHODIMP CMavrin2::Open(BSTR fileName, FormatTypeConstants FormatType) {
    return Run([&](DocumentEditor& editor) {
        return ReportError(editor.Opening.Open(ToPath(Bstr::View(fileName)), FormatType));
    });
}

STDMETHODIMP CMavrin2::Save(BSTR fileName, VARIANT_BOOL Selected, FormatTypeConstants FormatType) {
    return Run([&](DocumentEditor& editor) {
        return ReportError(editor.Saver.Save(ToPath(Bstr::View(fileName)), Selected, FormatType));
    });
}

STDMETHODIMP CMavrin2::Close() {
    return Run([](DocumentEditor& editor) { editor.Opening.Close(); });
}

STDMETHODIMP CMavrin2::Undo() {
    return Run([](DocumentEditor& editor) { editor.UndoRedo.Undo(); });
}

STDMETHODIMP CMavrin2::Redo() {
    return Run([](DocumentEditor& editor) { editor.UndoRedo.Redo(); });
}

STDMETHODIMP CMavrin2::BeginOperations() {
    return Run([](DocumentEditor& editor) { editor.UndoRedo.BeginOperations(); });
}

STDMETHODIMP CMavrin2::EndOperations() {
    return Run([](DocumentEditor& editor) { editor.UndoRedo.EndOperations(); });
}

STDMETHODIMP CMavrin2::Copy() {
    return Run([](DocumentEditor& editor) { editor.Edits.Copy(); });
}

STDMETHODIMP CMavrin2::Cut() {
    return Run([](DocumentEditor& editor) { editor.Edits.Cut(); });
}

STDMETHODIMP CMavrin2::Paste() {
    return Run([](DocumentEditor& editor) { editor.Edits.Paste(); });
}

STDMETHODIMP CMavrin2::CopyToClipboard() {
    return Run([](DocumentEditor& editor) { editor.Clipboard.CopyToClipboard(); });
}

STDMETHODIMP CMavrin2::PasteFromClipboard() {
    return Run([](DocumentEditor& editor) { editor.Clipboard.PasteFromClipboard(); });
}

STDMETHODIMP CMavrin2::PasteFromFile(BSTR fileName) {
    return Run(
        [&](DocumentEditor& editor) { editor.Edits.PasteFromFile(ToPath(Bstr::View(fileName))); });
}

STDMETHODIMP CMavrin2::Mix(FLOAT AmplifySelect, FLOAT AmplifyPaste) {
    return Run([&](DocumentEditor& editor) { editor.Edits.Mix(AmplifySelect, AmplifyPaste); });
}

STDMETHODIMP CMavrin2::MixFromFile(FLOAT AmplifySelect, BSTR fileNamePaste, FLOAT AmplifyPaste) {
    return Run([&](DocumentEditor& editor) {
        editor.Edits.MixFromFile(AmplifySelect, ToPath(Bstr::View(fileNamePaste)), AmplifyPaste);
    });
}

STDMETHODIMP CMavrin2::GetAudioArray(LONG nSamples, SAFEARRAY** Array) {
    if (!Array) return E_POINTER;
    *Array = nullptr;
    return Run(
        [&](DocumentEditor& editor) { *Array = editor.Arrays.GetAudioArray(nSamples).Detach(); });
}

STDMETHODIMP CMavrin2::PutAudioArray(SAFEARRAY** Array) {
    if (!Array) return E_POINTER;
    return Run([&](DocumentEditor& editor) { editor.Arrays.PutAudioArray(*Array); });
}

STDMETHODIMP CMavrin2::ConvertSampleType(interfaces::FrequencyConstants Frequency,
                                         interfaces::ChannelsConstants Channels) {
    return Run([&](DocumentEditor& editor) {
        editor.Conversion.ConvertSampleType(static_cast<std::int32_t>(Frequency),
                                            static_cast<std::int32_t>(Channels));
    });
}

STDMETHODIMP CMavrin2::DeleteSelect() {
    return Run([](DocumentEditor& editor) { editor.Edits.DeleteSelect(); });
}

STDMETHODIMP CMavrin2::Play(interfaces::PlayTypeConstants PlayType) {
    return Run([&](DocumentEditor& editor) { editor.Playback.Play(PlayType); });
}

STDMETHODIMP CMavrin2::Stop() {
    return Run([](DocumentEditor& editor) { editor.Transport.Stop(); });
}

STDMETHODIMP CMavrin2::Pause() {
    return Run([](DocumentEditor& editor) { editor.Playback.Pause(); });
}

STDMETHODIMP CMavrin2::Continue() {
    return Run([](DocumentEditor& editor) { return ReportError(editor.Playback.Continue()); });
}

STDMETHODIMP CMavrin2::Record(interfaces::RecordTypeConstants RecordType) {
    return Run([&](DocumentEditor& editor) { editor.Recording.Record(RecordType); });
}

STDMETHODIMP CMavrin2::ZoomIn() {
    return Run([](DocumentEditor& editor) { editor.Zooming.ZoomIn(); });
}

STDMETHODIMP CMavrin2::ZoomOut() {
    return Run([](DocumentEditor& editor) { editor.Zooming.ZoomOut(); });
}

STDMETHODIMP CMavrin2::ZoomFull() {
    return Run([](DocumentEditor& editor) { editor.Zooming.ZoomFull(); });
}

STDMETHODIMP CMavrin2::Zoom(LONG Start, LONG End) {
    return Run([&](DocumentEditor& editor) { editor.Zooming.ZoomTo(Start, End); });
}

STDMETHODIMP CMavrin2::ZoomVertical(LONG Procent) {
    return Run([&](DocumentEditor& editor) { editor.Zooming.ZoomVertical(Procent); });
}

STDMETHODIMP CMavrin2::Refresh() {
    return Run([](DocumentEditor& editor) { editor.Zooming.Refresh(); });
}

STDMETHODIMP CMavrin2::SaveWaveImage(BSTR fileBMP) {
    return Run(
        [&](DocumentEditor& editor) { editor.View.SaveWaveImage(ToPath(Bstr::View(fileBMP))); });
}

STDMETHODIMP CMavrin2::get_LastErrorNum(ErrorConstants* Value) {
    return Read(Value, [&] { return parts_.State.Status.LastError; });
}

STDMETHODIMP CMavrin2::get_Status(SHORT* Value) {
    return Read(Value, [&] { return static_cast<SHORT>(parts_.State.Status.Status()); });
}

STDMETHODIMP CMavrin2::get_TempDirectory(BSTR* Value) {
    return Read(Value, [&] {
        const editor::DocumentState* state = History().Current();
        return automation::NewBstr(automation::OleStringView(
            automation::ToOle(state ? state->WorkFilePath : parts_.State.Settings.TempDirectory)));
    });
}

STDMETHODIMP CMavrin2::put_TempDirectory(BSTR Value) {
    return Run([&](DocumentEditor&) {
        if (parts_.Temporary.ChooseFolder(ToPath(Bstr::View(Value))) && !History().Current() &&
            !parts_.State.Operations.AnyRuns())
            parts_.Temporary.CleanTempFiles();
    });
}

STDMETHODIMP CMavrin2::get_TempFileName(BSTR* Value) {
    return Read(Value, [&] {
        return automation::NewBstr(
            automation::OleStringView(automation::ToOle(parts_.State.Settings.TempFileName)));
    });
}

STDMETHODIMP CMavrin2::put_TempFileName(BSTR Value) {
    return Run(
        [&](DocumentEditor&) { parts_.Temporary.ChooseClipFile(ToPath(Bstr::View(Value))); });
}

STDMETHODIMP CMavrin2::get_FileBufferSize(LONG* Value) {
    return Read(Value, [&] { return parts_.State.Settings.FileBufferSize; });
}

STDMETHODIMP CMavrin2::put_FileBufferSize(LONG Value) {
    parts_.State.Settings.FileBufferSize = std::clamp<std::int32_t>(Value, 100, 600000);
    return S_OK;
}

STDMETHODIMP CMavrin2::get_UndoRedoCount(LONG* Value) {
    return Read(Value, [&] { return History().Limit() - 1; });
}

STDMETHODIMP CMavrin2::put_UndoRedoCount(LONG Value) {
    History().SetLimit(std::clamp<std::int32_t>(Value, 1, 10000) + 1);
    return S_OK;
}

STDMETHODIMP CMavrin2::get_UndoEnabled(VARIANT_BOOL* Value) {
    return Read(Value, [&] { return static_cast<VARIANT_BOOL>(History().CanStepBack()); });
}

STDMETHODIMP CMavrin2::get_RedoEnabled(VARIANT_BOOL* Value) {
    return Read(Value, [&] { return static_cast<VARIANT_BOOL>(History().CanStepForward()); });
}

STDMETHODIMP CMavrin2::get_ScaleX(interfaces::IMavrin2Scale** Value) {
    return GetPart(Value, parts_.Style.ScaleXObject);
}

STDMETHODIMP CMavrin2::put_ScaleX(interfaces::IMavrin2Scale* Value) {
    return PutPart(Value, parts_.Style.ScaleXObject);
}

STDMETHODIMP CMavrin2::get_ScaleY(interfaces::IMavrin2Scale** Value) {
    return GetPart(Value, parts_.Style.ScaleYObject);
}

STDMETHODIMP CMavrin2::put_ScaleY(interfaces::IMavrin2Scale* Value) {
    return PutPart(Value, parts_.Style.ScaleYObject);
}

STDMETHODIMP CMavrin2::get_Colors(interfaces::IMavrin2Colors** Value) {
    return GetPart(Value, parts_.Style.ColorsObject);
}

STDMETHODIMP CMavrin2::put_Colors(interfaces::IMavrin2Colors* Value) {
    return PutPart(Value, parts_.Style.ColorsObject);
}

STDMETHODIMP CMavrin2::get_FileInfo(interfaces::IMavrin2FileInfo** Value) {
    return GetPart(Value, parts_.FileInfo);
}

STDMETHODIMP CMavrin2::get_DeviceInput(interfaces::IMavrin2Device** Value) {
    return GetPart(Value, parts_.DeviceInput);
}

STDMETHODIMP CMavrin2::get_DeviceOutput(interfaces::IMavrin2Device** Value) {
    return GetPart(Value, parts_.DeviceOutput);
}

STDMETHODIMP CMavrin2::get_Recorder(interfaces::IMavrin2Recorder** Value) {
    return GetPart(Value, parts_.Recorder);
}

STDMETHODIMP CMavrin2::get_FileFormat(interfaces::IMavrin2FileFormat** Value) {
    return GetPart(Value, parts_.FileFormat);
}

STDMETHODIMP CMavrin2::get_Transform(interfaces::IMavrin2Transform** Value) {
    return GetPart(Value, parts_.Transform);
}

STDMETHODIMP CMavrin2::get_Position(interfaces::IMavrin2Position** Value) {
    return GetPart(Value, parts_.Position);
}

STDMETHODIMP CMavrin2::get_Channels(interfaces::IMavrin2Channel** Value) {
    return GetPart(Value, parts_.Channels);
}

STDMETHODIMP CMavrin2::get_Markers(interfaces::IMavrin2Markers** Value) {
    return GetPart(Value, parts_.Markers);
}

STDMETHODIMP CMavrin2::get_PlaySpeedEnabled(VARIANT_BOOL* Value) {
    return Read(Value, [&] { return parts_.State.Speed.PlaySpeedEnabled; });
}

STDMETHODIMP CMavrin2::put_PlaySpeedEnabled(VARIANT_BOOL Value) {
    parts_.State.Speed.PlaySpeedEnabled = Value;
    return S_OK;
}

STDMETHODIMP CMavrin2::get_PlaySpeedPercent(FLOAT* Value) {
    return Read(Value, [&] { return parts_.State.Speed.PlaySpeedPercent; });
}

STDMETHODIMP CMavrin2::put_PlaySpeedPercent(FLOAT Value) {
    parts_.State.Speed.PlaySpeedPercent = Value;
    return S_OK;
}

STDMETHODIMP CMavrin2::get_RecordVisualizationType(SHORT* Value) {
    return Read(Value, [&] { return parts_.State.Recording.VisualizationInUse; });
}

STDMETHODIMP CMavrin2::put_RecordVisualizationType(SHORT Value) {
    parts_.State.Recording.Choose(Value);
    return S_OK;
}

STDMETHODIMP CMavrin2::get_TypeBorder(SHORT* Value) {
    return Read(Value, [&] { return parts_.Editor->View.TypeBorder(); });
}

STDMETHODIMP CMavrin2::put_TypeBorder(SHORT Value) {
    return Run([&](DocumentEditor& editor) { editor.View.SetTypeBorder(Value); });
}

STDMETHODIMP CMavrin2::get_TypeView(interfaces::TypeViewConstants* Value) {
    return Read(Value, [&] { return parts_.Editor->View.TypeView(); });
}

STDMETHODIMP CMavrin2::put_TypeView(interfaces::TypeViewConstants Value) {
    return Run([&](DocumentEditor& editor) { editor.View.SetTypeView(Value); });
}

STDMETHODIMP CMavrin2::get_MarkerBarEnabled(SHORT* Value) {
    return Read(Value, [&] { return parts_.Editor->MarkerView.Settings().BarEnabled; });
}

STDMETHODIMP CMavrin2::put_MarkerBarEnabled(SHORT Value) {
    return Run([&](DocumentEditor& editor) { editor.MarkerView.SetBarEnabled(Value); });
}

STDMETHODIMP CMavrin2::get_MarkerBackgroundEnabled(SHORT* Value) {
    return Read(Value, [&] { return parts_.Editor->MarkerView.Settings().BackgroundEnabled; });
}

STDMETHODIMP CMavrin2::put_MarkerBackgroundEnabled(SHORT Value) {
    return Run([&](DocumentEditor& editor) { editor.MarkerView.SetBackgroundEnabled(Value); });
}

STDMETHODIMP CMavrin2::get_MarkerToolTipEnabled(SHORT* Value) {
    return Read(Value, [&] { return parts_.Editor->MarkerView.Settings().ToolTipEnabled; });
}

STDMETHODIMP CMavrin2::put_MarkerToolTipEnabled(SHORT Value) {
    return Run([&](DocumentEditor& editor) { editor.MarkerView.SetToolTipEnabled(Value); });
}

STDMETHODIMP CMavrin2::get_MarkerMouseEventEnabled(SHORT* Value) {
    return Read(Value, [&] { return parts_.Editor->MarkerView.Settings().MouseEventEnabled; });
}

STDMETHODIMP CMavrin2::put_MarkerMouseEventEnabled(SHORT Value) {
    return Run([&](DocumentEditor& editor) { editor.MarkerView.SetMouseEventEnabled(Value); });
}

STDMETHODIMP CMavrin2::get_MarkerBitmapType(SHORT* Value) {
    return Read(Value, [&] { return parts_.Editor->MarkerView.Settings().BitmapType; });
}

STDMETHODIMP CMavrin2::put_MarkerBitmapType(SHORT Value) {
    return Run([&](DocumentEditor& editor) { editor.MarkerView.SetBitmapType(Value); });
}

STDMETHODIMP CMavrin2::get_MousePointer(interfaces::MousePointerConstants* Value) {
    return Read(Value, [&] {
        return static_cast<interfaces::MousePointerConstants>(
            parts_.Editor->Mouse.Pointers.MousePointer());
    });
}

STDMETHODIMP CMavrin2::put_MousePointer(interfaces::MousePointerConstants Value) {
    return Run([&](DocumentEditor& editor) {
        editor.Mouse.Pointers.SetMousePointer(static_cast<std::int32_t>(Value));
    });
}

STDMETHODIMP CMavrin2::get_MouseCustom(BSTR* Value) {
    return Read(Value, [&] {
        return automation::NewBstr(automation::OleStringView(
            automation::ToOle(parts_.Editor->Mouse.Pointers.MouseCustom())));
    });
}

STDMETHODIMP CMavrin2::put_MouseCustom(BSTR Value) {
    return Run([&](DocumentEditor& editor) {
        editor.Mouse.Pointers.SetMouseCustom(ToPath(Bstr::View(Value)));
    });
}

STDMETHODIMP CMavrin2::get_MouseEventsEnabled(SHORT* Value) {
    return Read(Value, [&] { return parts_.State.Mouse.MouseEventsEnabled; });
}

STDMETHODIMP CMavrin2::put_MouseEventsEnabled(SHORT Value) {
    parts_.State.Mouse.MouseEventsEnabled = Value;
    return S_OK;
}

}  // namespace mavrin2::server
