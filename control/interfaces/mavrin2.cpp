#include "control/interfaces/mavrin2.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2>() {
    using I = interfaces::IMavrin2;
    using interfaces::ChannelsConstants;
    using interfaces::FormatTypeConstants;
    using interfaces::FrequencyConstants;
    using interfaces::PlayTypeConstants;
    using interfaces::RecordTypeConstants;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2", "The sound editor control", &interfaces::ControlLibrary)
            .Method<&I::New>(1, "New", "Creates an empty document: hertz, channels (1 or 2)",
                             In("Frequency"), In("nChannels"))
            .Method<&I::Open>(2, "Open", "Opens a sound file of any format", In("fileName"),
                              In("FormatType").Default(FormatTypeConstants::DEFAULT))
            .Method<&I::Save>(3, "Save", "Writes the document or its selection to a file",
                              In("fileName"), In("Selected").Boolean(),
                              In("FormatType").Default(FormatTypeConstants::DEFAULT))
            .Method<&I::Close>(4, "Close", "Closes the document without saving")
            .Method<&I::Undo>(5, "Undo", "Undoes one change, or one batch of changes")
            .Method<&I::Redo>(6, "Redo", "Redoes what Undo has undone")
            .Method<&I::BeginOperations>(7, "BeginOperations", "Starts a batch of changes")
            .Method<&I::EndOperations>(8, "EndOperations", "Ends the batch and draws it")
            .Method<&I::Copy>(9, "Copy", "Writes the selection to the file TempFileName")
            .Method<&I::Cut>(10, "Cut", "Copies the selection and deletes it")
            .Method<&I::Paste>(11, "Paste",
                               "Replaces the selection by the sound of TempFileName, or inserts it")
            .Method<&I::PasteFromFile>(12, "PasteFromFile", "Pastes a sound file of any format",
                                       In("fileName"))
            .Method<&I::Mix>(13, "Mix",
                             "Mixes the sound of TempFileName into the document; levels in percent",
                             In("AmplifySelect"), In("AmplifyPaste"))
            .Method<&I::MixFromFile>(14, "MixFromFile",
                                     "Mixes a sound file of any format; levels in percent",
                                     In("AmplifySelect"), In("fileNamePaste"), In("AmplifyPaste"))
            .Method<&I::DeleteSelect>(15, "DeleteSelect", "Deletes the selection")
            .Method<&I::CopyToClipboard>(16, "CopyToClipboard",
                                         "Copies the selection for other programs")
            .Method<&I::PasteFromClipboard>(17, "PasteFromClipboard",
                                            "Pastes the sound of another program")
            .Method<&I::GetAudioArray>(18, "GetAudioArray",
                                       "Interleaved samples of that many frames from the "
                                       "selection's start, fewer at the end",
                                       In("nSamples"), Result("Array").ArrayOf(VT_I2))
            .Method<&I::PutAudioArray>(19, "PutAudioArray",
                                       "Replaces the selection by interleaved samples, or inserts "
                                       "them",
                                       In("Array").ArrayOf(VT_I2))
            .Method<&I::ConvertSampleType>(20, "ConvertSampleType",
                                           "Changes rate (hertz) and channels (1 or 2)",
                                           In("Frequency").Default(FrequencyConstants::FQ_44_KHZ),
                                           In("Channels").Default(ChannelsConstants::STEREO))
            .Method<&I::Play>(21, "Play", "Plays from the selection's start",
                              In("PlayType").Default(PlayTypeConstants::NORMALPLAY))
            .Method<&I::Stop>(22, "Stop", "Ends playback, recording or the running operation")
            .Method<&I::Pause>(23, "Pause", "Pauses playback")
            .Method<&I::Continue>(24, "Continue", "Plays on after Pause")
            .Method<&I::Record>(25, "Record", "Records from the selection's start until Stop",
                                In("RecordType").Default(RecordTypeConstants::RECORD_MIX))
            .Method<&I::ZoomIn>(26, "ZoomIn", "Shows the selection")
            .Method<&I::ZoomOut>(27, "ZoomOut", "Returns to the previous zoom")
            .Method<&I::ZoomFull>(28, "ZoomFull", "Shows the whole document")
            .Method<&I::Zoom>(29, "Zoom", "Shows a range of frames", In("Start"), In("End"))
            .Method<&I::ZoomVertical>(30, "ZoomVertical",
                                      "Percent of full scale that a lane shows, 10 ... 1000",
                                      In("Procent").Default(100))
            .Method<&I::Refresh>(31, "Refresh", "Reads the sound again and draws it")
            .Method<&I::SaveWaveImage>(32, "SaveWaveImage", "Writes the picture as a bitmap file",
                                       In("fileBMP"))
            .Get<&I::get_LastErrorNum>(101, "LastErrorNum",
                                       "Error code of the last operation, 0 for success")
            .Get<&I::get_Status>(102, "Status", "Current activity, 0 when idle")
            .Property<&I::get_TempDirectory, &I::put_TempDirectory>(
                103, "TempDirectory",
                "Folder of temporary files, ending in a separator; the work file while a document "
                "is open")
            .Property<&I::get_TempFileName, &I::put_TempFileName>(
                104, "TempFileName", "File that Copy writes and Paste reads; a name ending in .wav")
            .Property<&I::get_FileBufferSize, &I::put_FileBufferSize>(
                105, "FileBufferSize", "Milliseconds of sound copied at a time, 100 ... 600000")
            .Property<&I::get_UndoRedoCount, &I::put_UndoRedoCount>(
                106, "UndoRedoCount", "Steps of Undo that are kept, 1 ... 10000")
            .GetBoolean<&I::get_UndoEnabled>(107, "UndoEnabled",
                                             "Whether there is an older version")
            .GetBoolean<&I::get_RedoEnabled>(108, "RedoEnabled", "Whether there is a newer version")
            .Property<&I::get_ScaleX, &I::put_ScaleX>(109, "ScaleX", "The time scale")
            .Property<&I::get_ScaleY, &I::put_ScaleY>(110, "ScaleY", "The level scale")
            .Property<&I::get_Colors, &I::put_Colors>(111, "Colors", "Colours of the picture")
            .Get<&I::get_FileInfo>(112, "FileInfo", "Format of the sound")
            .Get<&I::get_DeviceInput>(113, "DeviceInput", "Devices for recording")
            .Get<&I::get_DeviceOutput>(114, "DeviceOutput", "Devices for playback")
            .Get<&I::get_Recorder>(115, "Recorder", "What happens to sound while it is recorded")
            .Get<&I::get_Transform>(116, "Transform", "Signal processing of the selection")
            .Get<&I::get_Position>(117, "Position", "Selection, view and positions")
            .Get<&I::get_Channels>(118, "Channels", "Which channels are shown and edited")
            .Get<&I::get_Markers>(119, "Markers", "Marks in the sound")
            .Get<&I::get_FileFormat>(120, "FileFormat", "The format in which Save writes")
            .BooleanProperty<&I::get_PlaySpeedEnabled, &I::put_PlaySpeedEnabled>(
                121, "PlaySpeedEnabled", "Whether PlaySpeedPercent is used")
            .Property<&I::get_PlaySpeedPercent, &I::put_PlaySpeedPercent>(
                122, "PlaySpeedPercent",
                "Duration of playback in percent, 10 ... 1000: 200 is half as fast")
            .Property<&I::get_RecordVisualizationType, &I::put_RecordVisualizationType>(
                123, "RecordVisualizationType",
                "While recording: 1 the last seconds, 2 the sound that arrives, 3 the time")
            .Property<&I::get_TypeBorder, &I::put_TypeBorder>(
                124, "TypeBorder", "Border of the control, 0 ... 3; others are flat")
            .Property<&I::get_TypeView, &I::put_TypeView>(
                125, "TypeView", "What the lanes show; changes only while idle")
            .Property<&I::get_MarkerBarEnabled, &I::put_MarkerBarEnabled>(
                126, "MarkerBarEnabled", "Dotted lines at the starts and ends of markers")
            .Property<&I::get_MarkerBackgroundEnabled, &I::put_MarkerBackgroundEnabled>(
                127, "MarkerBackgroundEnabled", "Shades markers that have a length")
            .Property<&I::get_MarkerToolTipEnabled, &I::put_MarkerToolTipEnabled>(
                128, "MarkerToolTipEnabled", "Shows the label of the marker under the mouse")
            .Property<&I::get_MarkerMouseEventEnabled, &I::put_MarkerMouseEventEnabled>(
                129, "MarkerMouseEventEnabled", "A double click makes or deletes a marker")
            .Property<&I::get_MarkerBitmapType, &I::put_MarkerBitmapType>(
                130, "MarkerBitmapType",
                "1 or more: markers in their own colours; otherwise in CueMarker and RangeMarker")
            .Property<&I::get_MousePointer, &I::put_MousePointer>(
                131, "MousePointer", "The mouse's pointer; vbCustom is that of MouseCustom")
            .Property<&I::get_MouseCustom, &I::put_MouseCustom>(132, "MouseCustom",
                                                                "Path of a cursor file")
            .Property<&I::get_MouseEventsEnabled, &I::put_MouseEventsEnabled>(
                133, "MouseEventsEnabled", "Whether the mouse edits; 0 or not")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
