#include "control/interfaces/mavrin2.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2>() {
    using I = interfaces::IMavrin2;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2", "The sound editor control", interfaces::plan::Mavrin2,
                            &interfaces::ControlLibrary)
            .Method<&I::New>("New", "An empty document: hertz, channels (1 or 2)", In("Frequency"),
                             In("nChannels"))
            .Method<&I::Open>("Open", "Opens a sound file of any format", In("fileName"),
                              In("FormatType").Default(0))
            .Method<&I::Save>("Save", "Writes the document or its selection to a file",
                              In("fileName"), In("Selected").Boolean(), In("FormatType").Default(0))
            .Method<&I::Close>("Close", "Drops the document")
            .Method<&I::Undo>("Undo", "Goes back one change, or one batch of changes")
            .Method<&I::Redo>("Redo", "Takes an undone change back")
            .Method<&I::BeginOperations>("BeginOperations", "Starts a batch of changes")
            .Method<&I::EndOperations>("EndOperations", "Ends the batch and draws it")
            .Method<&I::DeleteSelect>("DeleteSelect", "Deletes the selection")
            .Method<&I::Stop>("Stop", "Cancels the running operation")
            .Method<&I::ZoomIn>("ZoomIn", "Shows the selection")
            .Method<&I::ZoomOut>("ZoomOut", "Goes back one zoom")
            .Method<&I::ZoomFull>("ZoomFull", "Shows the whole document")
            .Method<&I::Zoom>("Zoom", "Shows a range of frames", In("Start"), In("End"))
            .Method<&I::ZoomVertical>("ZoomVertical",
                                      "Percent of full scale in a lane: 10 ... 1000",
                                      In("Procent").Default(100))
            .Method<&I::Refresh>("Refresh", "Reads the sound again and draws it")
            .Method<&I::SaveWaveImage>("SaveWaveImage", "Writes the picture as a bitmap file",
                                       In("fileBMP"))
            .Get<&I::get_LastErrorNum>("LastErrorNum", "Outcome of the last operation")
            .Get<&I::get_Status>("Status", "What the control is doing, 0 when idle")
            .Get<&I::get_TempDirectory>("TempDirectory",
                                        "Work file of the document, or folder of temporary files")
            .Put<&I::put_TempDirectory>("TempDirectory", "A folder, with a separator at its end")
            .Get<&I::get_TempFileName>("TempFileName", "File of the editor's own clipboard")
            .Put<&I::put_TempFileName>("TempFileName", "A name that ends in .wav")
            .Get<&I::get_FileBufferSize>("FileBufferSize", "Milliseconds moved at a time")
            .Put<&I::put_FileBufferSize>("FileBufferSize", "100 ... 600000")
            .Get<&I::get_UndoRedoCount>("UndoRedoCount", "Steps of Undo that are kept")
            .Put<&I::put_UndoRedoCount>("UndoRedoCount", "1 ... 10000")
            .GetBoolean<&I::get_UndoEnabled>("UndoEnabled", "Whether there is an older version")
            .GetBoolean<&I::get_RedoEnabled>("RedoEnabled", "Whether there is a newer version")
            .Get<&I::get_ScaleX>("ScaleX", "The time scale")
            .Put<&I::put_ScaleX>("ScaleX", "A scale object")
            .Get<&I::get_ScaleY>("ScaleY", "The level scale")
            .Put<&I::put_ScaleY>("ScaleY", "A scale object")
            .Get<&I::get_Colors>("Colors", "Colours of the picture")
            .Put<&I::put_Colors>("Colors", "A colours object")
            .Get<&I::get_FileInfo>("FileInfo", "Format of the sound")
            .Get<&I::get_Position>("Position", "Selection, view and positions")
            .Get<&I::get_Channels>("Channels", "Which channels are shown and edited")
            .Get<&I::get_TypeBorder>("TypeBorder", "Edge of the control")
            .Put<&I::put_TypeBorder>("TypeBorder", "0 ... 3, others are flat")
            .Get<&I::get_TypeView>("TypeView", "What the lanes show")
            .Put<&I::put_TypeView>("TypeView", "Waveform, spectrum or nothing; only while idle")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
