#include "companions/contracts/velto.h"

#include "automation/interface_builder.h"

namespace mavrin2 {
namespace automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::IVelto2>() {
    using I = contracts::IVelto2;
    static const InterfaceDescription description = [] {
        InterfaceBuilder<I> builder("IVelto2", "Plays sound", &contracts::VeltoLibrary);
        builder.Method<&I::PrepareDevice>(1, "PrepareDevice", "Looks for the sound server")
            .Method<&I::StopDevice>(2, "StopDevice", "Drops what is queued; silence at once")
            .Method<&I::QueueBlock>(3, "QueueBlock", "Interleaved 16-bit samples to be played next",
                                    In("samples").ArrayOf(VT_I2))
            .Method<&I::SetFormat>(4, "SetFormat", "Rate in hertz, 100 to 768000; channels, 1 or 2",
                                   In("sampleRate"), In("channels"))
            .Method<&I::GetRecentSamples>(5, "GetRecentSamples", "The frames heard last",
                                          In("count"), Result("samples").ArrayOf(VT_I2))
            .Put<&I::put_TimerInterval>(6, "TimerInterval",
                                        "Milliseconds between two positions, 5 to 1000")
            .Put<&I::put_ExtraLatency>(7, "ExtraLatency",
                                       "Milliseconds buffered beyond the usual 100, 0 to 2000")
            .Method<&I::SetOutputChannels>(8, "SetOutputChannels",
                                           "1: left only, 2: right only, 3: both", In("channels"))
            .Method<&I::StartDevice>(9, "StartDevice", "Starts playing what will be queued",
                                     Result("error"))
            .Get<&I::get_DeviceCount>(10, "DeviceCount", "Number of devices")
            .Get<&I::get_DeviceName>(11, "DeviceName", "Name of the selected device")
            .Property<&I::get_DeviceNum, &I::put_DeviceNum>(
                12, "DeviceNum", "Selected device, from 1; 1 is the default device")
            .Property<&I::get_MasterVolume, &I::put_MasterVolume>(
                13, "MasterVolume", "Volume of the device in percent, 0 to 100");
        return contracts::DescribeLines(builder, 14).Build();
    }();
    return description;
}

}  // namespace automation

namespace contracts {

const automation::InterfaceDescription& VeltoEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_IVelto2Events", DIID_IVelto2Events, "Progress of playback",
                                  &VeltoLibrary)
            .Event(VeltoEvent::BlockDone, "BlockDone", "A block has gone to the device")
            .Event(VeltoEvent::Position, "PositionEvent",
                   "Frames heard since the start, and peaks since the event before (0 to 32767)",
                   {{"Frames", VT_I4}, {"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event(VeltoEvent::EndOfData, "EndOfData", "All that was queued has been heard")
            .Build();
    return description;
}

const automation::LibraryDescription& VeltoLibrary() {
    static const automation::LibraryDescription library{
        "KovVELTOLib",
        LIBID_KovVelto,
        2,
        0,
        "KovVelto 2.0 Type Library",
        {},
        {&automation::DescriptionOf<IVelto2>, &VeltoEvents},
        {{"KovVelto", CLSID_KovVelto, "Playback", &automation::DescriptionOf<IVelto2>,
          &VeltoEvents}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
