#pragma once

#include "automation/connection_points.h"
#include "automation/limited_samples.h"
#include "automation/object.h"
#include "automation/type_information.h"
#include "control/interfaces/mavrin2.h"
#include "control/server/control_parts.h"

namespace mavrin2::server {

// The control as hosts see it: its identity, its interfaces and the automation members, each of
// which forwards to the part that does the work.
class CMavrin2 final : public automation::AutomationObject<CMavrin2, interfaces::IMavrin2> {
public:
    CMavrin2(IUnknown* outer, ControlEnvironment environment);
    ~CMavrin2() = default;

    HRESULT FinalConstruct();
    void FinalRelease();
    void* FindInterface(REFIID iid);

    STDMETHODIMP New(interfaces::FrequencyConstants Frequency,
                     interfaces::ChannelsConstants nChannels) override;
    STDMETHODIMP Open(BSTR fileName, interfaces::FormatTypeConstants FormatType) override;
    STDMETHODIMP Save(BSTR fileName, VARIANT_BOOL Selected,
                      interfaces::FormatTypeConstants FormatType) override;
    STDMETHODIMP Close() override;
    STDMETHODIMP Undo() override;
    STDMETHODIMP Redo() override;
    STDMETHODIMP BeginOperations() override;
    STDMETHODIMP EndOperations() override;
    STDMETHODIMP Copy() override;
    STDMETHODIMP Cut() override;
    STDMETHODIMP Paste() override;
    STDMETHODIMP PasteFromFile(BSTR fileName) override;
    STDMETHODIMP CopyToClipboard() override;
    STDMETHODIMP PasteFromClipboard() override;
    STDMETHODIMP Mix(FLOAT AmplifySelect, FLOAT AmplifyPaste) override;
    STDMETHODIMP MixFromFile(FLOAT AmplifySelect, BSTR fileNamePaste, FLOAT AmplifyPaste) override;
    STDMETHODIMP DeleteSelect() override;
    STDMETHODIMP GetAudioArray(LONG nSamples, SAFEARRAY** Array) override;
    STDMETHODIMP PutAudioArray(SAFEARRAY** Array) override;
    STDMETHODIMP ConvertSampleType(interfaces::FrequencyConstants Frequency,
                                   interfaces::ChannelsConstants Channels) override;
    STDMETHODIMP Play(interfaces::PlayTypeConstants PlayType) override;
    STDMETHODIMP Stop() override;
    STDMETHODIMP Pause() override;
    STDMETHODIMP Continue() override;
    STDMETHODIMP Record(interfaces::RecordTypeConstants RecordType) override;
    STDMETHODIMP ZoomIn() override;
    STDMETHODIMP ZoomOut() override;
    STDMETHODIMP ZoomFull() override;
    STDMETHODIMP Zoom(LONG Start, LONG End) override;
    STDMETHODIMP ZoomVertical(LONG Procent) override;
    STDMETHODIMP Refresh() override;
    STDMETHODIMP SaveWaveImage(BSTR fileBMP) override;
    STDMETHODIMP get_LastErrorNum(interfaces::ErrorConstants* Value) override;
    STDMETHODIMP get_Status(SHORT* Value) override;
    STDMETHODIMP get_TempDirectory(BSTR* Value) override;
    STDMETHODIMP put_TempDirectory(BSTR Value) override;
    STDMETHODIMP get_TempFileName(BSTR* Value) override;
    STDMETHODIMP put_TempFileName(BSTR Value) override;
    STDMETHODIMP get_FileBufferSize(LONG* Value) override;
    STDMETHODIMP put_FileBufferSize(LONG Value) override;
    STDMETHODIMP get_UndoRedoCount(LONG* Value) override;
    STDMETHODIMP put_UndoRedoCount(LONG Value) override;
    STDMETHODIMP get_UndoEnabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP get_RedoEnabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP get_ScaleX(interfaces::IMavrin2Scale** Value) override;
    STDMETHODIMP put_ScaleX(interfaces::IMavrin2Scale* Value) override;
    STDMETHODIMP get_ScaleY(interfaces::IMavrin2Scale** Value) override;
    STDMETHODIMP put_ScaleY(interfaces::IMavrin2Scale* Value) override;
    STDMETHODIMP get_Colors(interfaces::IMavrin2Colors** Value) override;
    STDMETHODIMP put_Colors(interfaces::IMavrin2Colors* Value) override;
    STDMETHODIMP get_FileInfo(interfaces::IMavrin2FileInfo** Value) override;
    STDMETHODIMP get_DeviceInput(interfaces::IMavrin2Device** Value) override;
    STDMETHODIMP get_DeviceOutput(interfaces::IMavrin2Device** Value) override;
    STDMETHODIMP get_Recorder(interfaces::IMavrin2Recorder** Value) override;
    STDMETHODIMP get_Transform(interfaces::IMavrin2Transform** Value) override;
    STDMETHODIMP get_Position(interfaces::IMavrin2Position** Value) override;
    STDMETHODIMP get_Channels(interfaces::IMavrin2Channel** Value) override;
    STDMETHODIMP get_Markers(interfaces::IMavrin2Markers** Value) override;
    STDMETHODIMP get_FileFormat(interfaces::IMavrin2FileFormat** Value) override;
    STDMETHODIMP get_PlaySpeedEnabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_PlaySpeedEnabled(VARIANT_BOOL Value) override;
    STDMETHODIMP get_PlaySpeedPercent(FLOAT* Value) override;
    STDMETHODIMP put_PlaySpeedPercent(FLOAT Value) override;
    STDMETHODIMP get_RecordVisualizationType(SHORT* Value) override;
    STDMETHODIMP put_RecordVisualizationType(SHORT Value) override;
    STDMETHODIMP get_TypeBorder(SHORT* Value) override;
    STDMETHODIMP put_TypeBorder(SHORT Value) override;
    STDMETHODIMP get_TypeView(interfaces::TypeViewConstants* Value) override;
    STDMETHODIMP put_TypeView(interfaces::TypeViewConstants Value) override;
    STDMETHODIMP get_MarkerBarEnabled(SHORT* Value) override;
    STDMETHODIMP put_MarkerBarEnabled(SHORT Value) override;
    STDMETHODIMP get_MarkerBackgroundEnabled(SHORT* Value) override;
    STDMETHODIMP put_MarkerBackgroundEnabled(SHORT Value) override;
    STDMETHODIMP get_MarkerToolTipEnabled(SHORT* Value) override;
    STDMETHODIMP put_MarkerToolTipEnabled(SHORT Value) override;
    STDMETHODIMP get_MarkerMouseEventEnabled(SHORT* Value) override;
    STDMETHODIMP put_MarkerMouseEventEnabled(SHORT Value) override;
    STDMETHODIMP get_MarkerBitmapType(SHORT* Value) override;
    STDMETHODIMP put_MarkerBitmapType(SHORT Value) override;
    STDMETHODIMP get_MousePointer(interfaces::MousePointerConstants* Value) override;
    STDMETHODIMP put_MousePointer(interfaces::MousePointerConstants Value) override;
    STDMETHODIMP get_MouseCustom(BSTR* Value) override;
    STDMETHODIMP put_MouseCustom(BSTR Value) override;
    STDMETHODIMP get_MouseEventsEnabled(SHORT* Value) override;
    STDMETHODIMP put_MouseEventsEnabled(SHORT Value) override;

private:
    template <class Act>
    HRESULT Run(Act&& act);
    template <class Value, class Reader>
    HRESULT Read(Value* target, Reader&& read);
    template <class Interface, class Object>
    HRESULT GetPart(Interface** target, const automation::ComPtr<Object>& object);
    template <class Interface>
    HRESULT PutPart(Interface* object, automation::ComPtr<Interface>& place);

    editor::UndoHistory& History() { return parts_.Position->History(); }

    automation::ConnectionPoints connectionPoints_;
    automation::ClassInformation classInformation_;
    ControlParts parts_;
    automation::LimitedSamplesPart limitedSamples_;
};

}  // namespace mavrin2::server
