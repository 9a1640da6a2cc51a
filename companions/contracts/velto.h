#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/device_lines.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The events of _IVelto2Events. All arguments are 32-bit integers.
enum class VeltoEvent : DISPID {
    BlockDone = 1,         // a block has gone to the device; answer with the next one
    Ignored = 2,           // no meaning; not raised
    Position = 3,          // frames heard, left and right level
    BlockDoneAnother = 4,  // as BlockDone; not raised
    EndOfData = 5          // all that was queued has been heard, or the device has failed
};

const automation::InterfaceDescription& VeltoEvents();

// The members of the playback companion that precede its mixer lines.
//
// A run begins with SetFormat, PrepareDevice and StartDevice, then blocks are queued. Positions
// are sample frames from the start of the run; while blocks are missing, silence is heard and the
// position stays. Levels are the peaks of what was heard since the event before, 0 … 32767.
//
// EndOfData is raised once, after a Position with the exact number of frames, when all was heard
// and the host has answered every BlockDone without a block. A run that could not start, or got no
// block before the host's thread came to its loop again, ends in EndOfData too, and so does one
// whose device has gone. After StopDevice no event of the run is raised.
//
// Events arrive on the thread that created the component, through its posting queue. No call waits
// longer than a second for a sound server that does not answer; without a server there is one
// device, which keeps real time.
struct IVeltoPlayback : public IDispatch {
    // Looks for the sound server, if it is not connected.
    virtual HRESULT STDMETHODCALLTYPE PrepareDevice() = 0;
    // Silence at once: what is queued is dropped.
    virtual HRESULT STDMETHODCALLTYPE StopDevice() = 0;
    // Interleaved 16-bit frames of any number, which are copied: the array stays the caller's.
    virtual HRESULT STDMETHODCALLTYPE QueueBlock(SAFEARRAY** samples) = 0;
    // For the next start: Hz, limited to 100 … 768000, and 1 or 2 channels.
    virtual HRESULT STDMETHODCALLTYPE SetFormat(LONG sampleRate, LONG channels) = 0;
    // The `count` frames heard last, fewer where fewer were heard; two seconds are kept. The array
    // becomes the caller's.
    virtual HRESULT STDMETHODCALLTYPE GetRecentSamples(LONG count, SAFEARRAY** samples) = 0;
    // Milliseconds between two Position events, limited to 5 … 1000.
    virtual HRESULT STDMETHODCALLTYPE put_TimerInterval(SHORT milliseconds) = 0;
    // What the device buffers beyond the usual 100 ms, from the next start on: milliseconds,
    // limited to 0 … 2000.
    virtual HRESULT STDMETHODCALLTYPE put_ExtraLatency(LONG milliseconds) = 0;
    // Of stereo sound: 1 left only, 2 right only, 3 both; the other channel is silent. Other values
    // count as 3. Takes effect with the frames that go to the device next.
    virtual HRESULT STDMETHODCALLTYPE SetOutputChannels(LONG channels) = 0;
    // An ErrorConstants value, 0 for success.
    virtual HRESULT STDMETHODCALLTYPE StartDevice(LONG* error) = 0;

    // Device 1 is the server's default device, whichever that is. Never 0.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceCount(SHORT* count) = 0;
    // Of the selected device. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceName(BSTR* name) = 0;
    // From 1, limited. For the next start.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceNum(SHORT* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DeviceNum(SHORT number) = 0;
    // Of the selected device, percent of its slider, 0 … 100.
    virtual HRESULT STDMETHODCALLTYPE get_MasterVolume(LONG* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_MasterVolume(LONG percent) = 0;
};

// The playback companion: plays blocks of 16-bit samples on an output device.
struct IVelto2 : public DeviceLineMembers<IVeltoPlayback> {
    static constexpr IID Id = IID_IVelto2;
};

const automation::LibraryDescription& VeltoLibrary();

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::IVelto2>();
}  // namespace mavrin2::automation
