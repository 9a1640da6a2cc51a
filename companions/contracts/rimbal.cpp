#include "companions/contracts/rimbal.h"

#include "automation/interface_builder.h"

namespace mavrin2 {
namespace automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::IRimbal2>() {
    using I = contracts::IRimbal2;
    static const InterfaceDescription description = [] {
        InterfaceBuilder<I> builder("IRimbal2", "Records sound", &contracts::RimbalLibrary);
        builder.Method<&I::PrepareDevice>(1, "PrepareDevice", "Looks for the sound server")
            .Method<&I::StopDevice>(2, "StopDevice", "Ends recording; ReadBlock gives the rest")
            .Method<&I::SetFormat>(3, "SetFormat", "Rate in hertz, 100 to 768000; channels, 1 or 2",
                                   In("sampleRate"), In("channels"))
            .Method<&I::ReadBlock>(4, "ReadBlock", "The next block, interleaved 16-bit samples",
                                   Result("samples").ArrayOf(VT_I2))
            .Method<&I::GetRecentSamples>(5, "GetRecentSamples", "The frames captured last",
                                          In("count"), Result("samples").ArrayOf(VT_I2))
            .Put<&I::put_TimerInterval>(6, "TimerInterval",
                                        "Milliseconds between two positions, 5 to 1000")
            .Method<&I::SetBufferFrames>(7, "SetBufferFrames", "Frames of a block", In("frames"))
            .Property<&I::get_NotchFilterFrequency, &I::put_NotchFilterFrequency>(
                8, "NotchFilterFrequency", "Hertz; off outside 1 to 0.49 of the rate")
            .BooleanProperty<&I::get_NotchFilterEnabled, &I::put_NotchFilterEnabled>(
                9, "NotchFilterEnabled", "Whether the notch filter is on")
            .BooleanProperty<&I::get_HighPassFilterEnabled, &I::put_HighPassFilterEnabled>(
                10, "HighPassFilterEnabled", "Whether the high-pass filter is on")
            .BooleanProperty<&I::get_LowPassFilterEnabled, &I::put_LowPassFilterEnabled>(
                11, "LowPassFilterEnabled", "Whether the low-pass filter is on")
            .Property<&I::get_HighPassFilterFrequency, &I::put_HighPassFilterFrequency>(
                12, "HighPassFilterFrequency", "Hertz; off outside 1 to 0.49 of the rate")
            .Property<&I::get_LowPassFilterFrequency, &I::put_LowPassFilterFrequency>(
                13, "LowPassFilterFrequency", "Hertz; off outside 1 to 0.49 of the rate")
            .Method<&I::StartDevice>(14, "StartDevice", "Starts recording", Result("error"))
            .Get<&I::get_DeviceCount>(15, "DeviceCount", "Number of devices")
            .Get<&I::get_DeviceName>(16, "DeviceName", "Name of the selected device")
            .Property<&I::get_DeviceNum, &I::put_DeviceNum>(
                17, "DeviceNum", "Selected device, from 1; 1 is the default device");
        return contracts::DescribeLines(builder, 18)
            .Property<&I::get_AccuAttackTime, &I::put_AccuAttackTime>(
                30, "AccuAttackTime", "Milliseconds of sound before storing begins, 0 to 60000")
            .Property<&I::get_AccuAttackLevel, &I::put_AccuAttackLevel>(
                31, "AccuAttackLevel", "Level above which there is sound, 0 to 32767")
            .Property<&I::get_AccuReleaseTime, &I::put_AccuReleaseTime>(
                32, "AccuReleaseTime", "Milliseconds of silence before storing ends, 0 to 60000")
            .Property<&I::get_AccuReleaseLevel, &I::put_AccuReleaseLevel>(
                33, "AccuReleaseLevel", "Level below which there is silence, 0 to 32767")
            .BooleanProperty<&I::get_AccuEnabled, &I::put_AccuEnabled>(
                34, "AccuEnabled", "Whether only sound is stored")
            .Property<&I::get_AGCLowLevel, &I::put_AGCLowLevel>(
                35, "AGCLowLevel", "Peak below which the gain rises, 0 to 32767")
            .Property<&I::get_AGCHighLevel, &I::put_AGCHighLevel>(
                36, "AGCHighLevel", "Peak above which the gain falls, 0 to 32767")
            .Property<&I::get_AGCAttackTime, &I::put_AGCAttackTime>(
                37, "AGCAttackTime", "Milliseconds to reach another gain, 0 to 60000")
            .BooleanProperty<&I::get_AGCEnabled, &I::put_AGCEnabled>(
                38, "AGCEnabled", "Whether the gain is controlled")
            .Build();
    }();
    return description;
}

}  // namespace automation

namespace contracts {

const automation::InterfaceDescription& RimbalEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_IRimbal2Events", DIID_IRimbal2Events, "Progress of a recording",
                                  &RimbalLibrary)
            .Event(RimbalEvent::BlockReady, "BlockReady", "A block is complete")
            .Event(RimbalEvent::Position, "PositionEvent",
                   "Frames stored since the start, and peaks since the event before (0 to 32767)",
                   {{"Frames", VT_I4}, {"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event(RimbalEvent::Gain, "GainEvent", "New gain of the automatic gain control",
                   {{"Percent", VT_I4}})
            .Build();
    return description;
}

const automation::LibraryDescription& RimbalLibrary() {
    static const automation::LibraryDescription library{
        "KovRIMBALLib",
        LIBID_KovRimbal2,
        2,
        0,
        "KovRimbal 2.0 Type Library",
        {},
        {&automation::DescriptionOf<IRimbal2>, &RimbalEvents},
        {{"KovRimbal2", CLSID_KovRimbal2, "Recording", &automation::DescriptionOf<IRimbal2>,
          &RimbalEvents}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
