#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The events of _IPindleCD2Events. All arguments are 32-bit integers.
enum class PindleEvent : DISPID {
    Progress = 1  // percent
};

const automation::InterfaceDescription& PindleEvents();

// The CD grabber: lists CD drives and reads one track of the disc in one of them, as 16-bit stereo
// samples at 44100 Hz. It raises _IPindleCD2Events::Progress while a block is read.
//
// Calls come in this order: GrabberInit, DriveNum and OpenDrive, TrackIndex, PrepareTrack,
// StartReading, ReadBlock until there is no more, StopReading, GrabberClose.
struct IPindleCD2 : public IDispatch {
    static constexpr IID Id = IID_IPindleCD2;

    // Looks for drives.
    virtual HRESULT STDMETHODCALLTYPE GrabberInit() = 0;
    // Lets go of everything.
    virtual HRESULT STDMETHODCALLTYPE GrabberClose() = 0;
    // Opens the disc in the selected drive. Fails without a disc.
    virtual HRESULT STDMETHODCALLTYPE OpenDrive() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DriveCount(SHORT* count) = 0;
    // From 1. Fails for a number without a drive, and selects nothing then.
    virtual HRESULT STDMETHODCALLTYPE put_DriveNum(SHORT number) = 0;
    // The drive part of the paths of the disc's tracks: "D:", or on Linux a device, the folder
    // where it is mounted, or a disc image. A drive with two names is listed twice.
    virtual HRESULT STDMETHODCALLTYPE get_DriveName(BSTR* name) = 0;
    // 0 reads with verification until the samples are right, anything else as fast as possible.
    virtual HRESULT STDMETHODCALLTYPE put_ReadMode(LONG mode) = 0;
    // From 0 for the disc's track 1.
    virtual HRESULT STDMETHODCALLTYPE put_TrackIndex(LONG index) = 0;
    // Sectors of the track. 0 for no track.
    virtual HRESULT STDMETHODCALLTYPE get_TrackSizeFactor1(LONG* sectors) = 0;
    // The track's first sector on the disc.
    virtual HRESULT STDMETHODCALLTYPE get_TrackInfo3(LONG* sector) = 0;
    // 16-bit values of a sector, both channels together: 1176.
    virtual HRESULT STDMETHODCALLTYPE get_TrackSizeFactor2(LONG* values) = 0;
    // `first` is the sector of the track that is read first.
    virtual HRESULT STDMETHODCALLTYPE StartReading(LONG first) = 0;
    // `status` is 0 if the track can be read: it exists and has sound.
    virtual HRESULT STDMETHODCALLTYPE PrepareTrack(LONG* status) = 0;
    virtual HRESULT STDMETHODCALLTYPE StopReading() = 0;
    // The next `count` sectors, fewer at the end, an array without elements after it. The array
    // becomes the caller's. `read` is the number of sectors, `status` 0 for success; after another
    // one the same sectors can be requested again.
    virtual HRESULT STDMETHODCALLTYPE ReadBlock(LONG count, SAFEARRAY** samples, LONG* read,
                                                LONG* status) = 0;
};

const automation::LibraryDescription& PindleLibrary();

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::IPindleCD2>();
}  // namespace mavrin2::automation
