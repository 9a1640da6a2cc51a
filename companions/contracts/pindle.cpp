#include "companions/contracts/pindle.h"

#include "automation/interface_builder.h"

namespace mavrin2 {
namespace automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::IPindleCD2>() {
    using I = contracts::IPindleCD2;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IPindleCD2", "Reads tracks of CDs", &contracts::PindleLibrary)
            .Method<&I::GrabberInit>(1, "GrabberInit", "Looks for drives")
            .Method<&I::GrabberClose>(2, "GrabberClose", "Closes the drive")
            .Method<&I::OpenDrive>(3, "OpenDrive", "Opens the disc in the selected drive")
            .Get<&I::get_DriveCount>(4, "DriveCount", "Number of drives")
            .Put<&I::put_DriveNum>(5, "DriveNum", "Selected drive, from 1")
            .Get<&I::get_DriveName>(6, "DriveName", "Drive part of the tracks' paths")
            .Put<&I::put_ReadMode>(7, "ReadMode", "0: verify what is read")
            .Put<&I::put_TrackIndex>(8, "TrackIndex", "Track of the disc, from 0")
            .Get<&I::get_TrackSizeFactor1>(9, "TrackSizeFactor1", "Sectors of the track")
            .Get<&I::get_TrackInfo3>(10, "TrackInfo3", "First sector of the track on the disc")
            .Get<&I::get_TrackSizeFactor2>(11, "TrackSizeFactor2", "16-bit values of a sector")
            .Method<&I::StartReading>(12, "StartReading", "Begins at a sector of the track",
                                      In("first"))
            .Method<&I::PrepareTrack>(13, "PrepareTrack", "0 if the track can be read",
                                      Result("status"))
            .Method<&I::StopReading>(14, "StopReading", "Ends reading")
            .Method<&I::ReadBlock>(15, "ReadBlock", "The next sectors, none at the end",
                                   In("count"), Out("samples").ArrayOf(VT_I2), Out("read"),
                                   Result("status"))
            .Build();
    return description;
}

}  // namespace automation

namespace contracts {

const automation::InterfaceDescription& PindleEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_IPindleCD2Events", DIID_IPindleCD2Events,
                                  "Progress of a CD track", &PindleLibrary)
            .Event(PindleEvent::Progress, "Progress", "How far the track has been read",
                   {{"Percent", VT_I4}})
            .Build();
    return description;
}

const automation::LibraryDescription& PindleLibrary() {
    static const automation::LibraryDescription library{
        "KovPINDLELib",
        LIBID_KovPindle,
        2,
        0,
        "KovPindle 2.0 Type Library",
        {},
        {&automation::DescriptionOf<IPindleCD2>, &PindleEvents},
        {{"KovPindle", CLSID_KovPindle, "CD tracks", &automation::DescriptionOf<IPindleCD2>,
          &PindleEvents}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
