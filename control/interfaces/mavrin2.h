#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/channel.h"
#include "control/interfaces/colors.h"
#include "control/interfaces/device.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/file_format.h"
#include "control/interfaces/file_info.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/markers.h"
#include "control/interfaces/position.h"
#include "control/interfaces/recorder.h"
#include "control/interfaces/scale.h"
#include "control/interfaces/transform.h"

namespace mavrin2::interfaces {

// The control. Open, Save and Continue fail with a status of 0x80040300 … 0x8004030F and error
// information; every other member succeeds and leaves its outcome in LastErrorNum. What needs an
// open document or an idle control does nothing without it. Long operations report through the
// events of DIID_IMavrin2Events; a handler that calls Stop cancels the operation.
struct IMavrin2 : public IDispatch {
    static constexpr IID Id = IID_IMavrin2;

    // An empty document of that format.
    virtual HRESULT STDMETHODCALLTYPE New(FrequencyConstants Frequency,
                                          ChannelsConstants nChannels) = 0;
    // A document from a sound file of any format, at the file's own rate.
    virtual HRESULT STDMETHODCALLTYPE Open(BSTR fileName, FormatTypeConstants FormatType) = 0;
    // Writes the document, or its selection, to a file.
    virtual HRESULT STDMETHODCALLTYPE Save(BSTR fileName, VARIANT_BOOL Selected,
                                           FormatTypeConstants FormatType) = 0;
    virtual HRESULT STDMETHODCALLTYPE Close() = 0;
    virtual HRESULT STDMETHODCALLTYPE Undo() = 0;
    virtual HRESULT STDMETHODCALLTYPE Redo() = 0;
    // Changes in between are one step of Undo and are drawn once.
    virtual HRESULT STDMETHODCALLTYPE BeginOperations() = 0;
    virtual HRESULT STDMETHODCALLTYPE EndOperations() = 0;
    // Writes the selection to the file TempFileName.
    virtual HRESULT STDMETHODCALLTYPE Copy() = 0;
    virtual HRESULT STDMETHODCALLTYPE Cut() = 0;
    // Puts the sound of TempFileName in the place of the selection, or inserts it at the current
    // position, converted to the document's rate and channels.
    virtual HRESULT STDMETHODCALLTYPE Paste() = 0;
    // The same with a sound file of any format.
    virtual HRESULT STDMETHODCALLTYPE PasteFromFile(BSTR fileName) = 0;
    // Mixes the sound of TempFileName into the document from the selection's start on, until one of
    // them ends. Levels in percent.
    virtual HRESULT STDMETHODCALLTYPE Mix(FLOAT AmplifySelect, FLOAT AmplifyPaste) = 0;
    virtual HRESULT STDMETHODCALLTYPE MixFromFile(FLOAT AmplifySelect, BSTR fileNamePaste,
                                                  FLOAT AmplifyPaste) = 0;
    virtual HRESULT STDMETHODCALLTYPE DeleteSelect() = 0;
    // Exchange with other programs through the system's clipboard, as WAVE files.
    virtual HRESULT STDMETHODCALLTYPE CopyToClipboard() = 0;
    virtual HRESULT STDMETHODCALLTYPE PasteFromClipboard() = 0;
    // At most `nSamples` frames from the selection's start, as 16-bit samples, interleaved; fewer
    // at the end of the document. While the control plays or records, the latest frames of that.
    // The array becomes the caller's; null when there is nothing to read.
    virtual HRESULT STDMETHODCALLTYPE GetAudioArray(LONG nSamples, SAFEARRAY** Array) = 0;
    // Puts the samples in the place of the selection, or inserts them at its start. The array is
    // read and stays the caller's.
    virtual HRESULT STDMETHODCALLTYPE PutAudioArray(SAFEARRAY** Array) = 0;
    // Changes the document's rate (hertz) and channels (1 or 2).
    virtual HRESULT STDMETHODCALLTYPE ConvertSampleType(FrequencyConstants Frequency,
                                                        ChannelsConstants Channels) = 0;
    // Plays from the selection's start; EndPlay comes at the end. Where the device cannot be
    // started LastErrorNum is OUTDRIVER, and EndPlay comes soon.
    virtual HRESULT STDMETHODCALLTYPE Play(PlayTypeConstants PlayType) = 0;
    // Cancels the running operation, ends playback (EndPlay) and recording.
    virtual HRESULT STDMETHODCALLTYPE Stop() = 0;
    virtual HRESULT STDMETHODCALLTYPE Pause() = 0;
    // After Pause.
    virtual HRESULT STDMETHODCALLTYPE Continue() = 0;
    // Records from the selection's start on, into a new version of the document, until Stop, or
    // until no more can be stored: LastErrorNum is FILEACCESS then, and what was stored is kept.
    virtual HRESULT STDMETHODCALLTYPE Record(RecordTypeConstants RecordType) = 0;
    // Shows the selection, at least 3 frames. Up to 99 zooms can be undone by ZoomOut.
    virtual HRESULT STDMETHODCALLTYPE ZoomIn() = 0;
    virtual HRESULT STDMETHODCALLTYPE ZoomOut() = 0;
    virtual HRESULT STDMETHODCALLTYPE ZoomFull() = 0;
    // Shows a range of frames, shifted into the document.
    virtual HRESULT STDMETHODCALLTYPE Zoom(LONG Start, LONG End) = 0;
    // Percent of full scale that a lane shows, 10 … 1000.
    virtual HRESULT STDMETHODCALLTYPE ZoomVertical(LONG Procent) = 0;
    // Reads the sound again and draws it.
    virtual HRESULT STDMETHODCALLTYPE Refresh() = 0;
    // Writes what was drawn last as a bitmap file. Failure is not reported.
    virtual HRESULT STDMETHODCALLTYPE SaveWaveImage(BSTR fileBMP) = 0;

    virtual HRESULT STDMETHODCALLTYPE get_LastErrorNum(ErrorConstants* Value) = 0;
    // 0 when idle.
    virtual HRESULT STDMETHODCALLTYPE get_Status(SHORT* Value) = 0;
    // The path of the work file while a document is open, else the folder of temporary files.
    virtual HRESULT STDMETHODCALLTYPE get_TempDirectory(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TempDirectory(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TempFileName(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TempFileName(BSTR Value) = 0;
    // Milliseconds of sound moved at a time, 100 … 600000.
    virtual HRESULT STDMETHODCALLTYPE get_FileBufferSize(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_FileBufferSize(LONG Value) = 0;
    // Steps of Undo kept, 1 … 10000.
    virtual HRESULT STDMETHODCALLTYPE get_UndoRedoCount(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_UndoRedoCount(LONG Value) = 0;
    // 1 for true.
    virtual HRESULT STDMETHODCALLTYPE get_UndoEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RedoEnabled(VARIANT_BOOL* Value) = 0;
    // The one object of each kind that the control holds. Writing replaces it; null is ignored.
    virtual HRESULT STDMETHODCALLTYPE get_ScaleX(IMavrin2Scale** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ScaleX(IMavrin2Scale* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ScaleY(IMavrin2Scale** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ScaleY(IMavrin2Scale* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Colors(IMavrin2Colors** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Colors(IMavrin2Colors* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_FileInfo(IMavrin2FileInfo** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DeviceInput(IMavrin2Device** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DeviceOutput(IMavrin2Device** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Recorder(IMavrin2Recorder** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Transform(IMavrin2Transform** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Position(IMavrin2Position** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Channels(IMavrin2Channel** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Markers(IMavrin2Markers** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_FileFormat(IMavrin2FileFormat** Value) = 0;
    // Whether playback lasts PlaySpeedPercent of the usual time: 200 is half as fast, an octave
    // lower. Kept as written; what is outside 10 … 1000 plays as the nearest.
    virtual HRESULT STDMETHODCALLTYPE get_PlaySpeedEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PlaySpeedEnabled(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PlaySpeedPercent(FLOAT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PlaySpeedPercent(FLOAT Value) = 0;
    // What is shown while recording: 1 the last four seconds of the document, 2 the sound that
    // arrives, 3 only that time passes. Read as 3 where the system was too slow for 2.
    virtual HRESULT STDMETHODCALLTYPE get_RecordVisualizationType(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_RecordVisualizationType(SHORT Value) = 0;
    // 0 sunken, 1 … 3 other borders; anything else is flat.
    virtual HRESULT STDMETHODCALLTYPE get_TypeBorder(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TypeBorder(SHORT Value) = 0;
    // Nothing changes while the control is busy.
    virtual HRESULT STDMETHODCALLTYPE get_TypeView(TypeViewConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TypeView(TypeViewConstants Value) = 0;
    // What is shown of markers: dotted lines at their starts and ends; the background of those with
    // a length; the label of the one under the mouse. Kept as written; 1 at first.
    virtual HRESULT STDMETHODCALLTYPE get_MarkerBarEnabled(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MarkerBarEnabled(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_MarkerBackgroundEnabled(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MarkerBackgroundEnabled(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_MarkerToolTipEnabled(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MarkerToolTipEnabled(SHORT Value) = 0;
    // Whether a double click makes or deletes a marker.
    virtual HRESULT STDMETHODCALLTYPE get_MarkerMouseEventEnabled(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MarkerMouseEventEnabled(SHORT Value) = 0;
    // 1 or more: markers have colours of their own. Otherwise cues have CueMarker, those with a
    // length RangeMarker of Colors.
    virtual HRESULT STDMETHODCALLTYPE get_MarkerBitmapType(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MarkerBitmapType(SHORT Value) = 0;
    // The mouse's pointer where the control sets none itself; vbCustom is that of the cursor
    // file MouseCustom. The arrow for other values, which are kept, and where that file cannot be
    // read.
    virtual HRESULT STDMETHODCALLTYPE get_MousePointer(MousePointerConstants* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MousePointer(MousePointerConstants Value) = 0;
    // The path of a cursor file (.cur). Nothing changes when it cannot be read.
    virtual HRESULT STDMETHODCALLTYPE get_MouseCustom(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MouseCustom(BSTR Value) = 0;
    // Whether the mouse selects, scrolls and edits markers. Its events are raised even if it does
    // not.
    virtual HRESULT STDMETHODCALLTYPE get_MouseEventsEnabled(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MouseEventsEnabled(SHORT Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2>();
}  // namespace mavrin2::automation
