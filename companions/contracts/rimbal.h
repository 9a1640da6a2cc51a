#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/device_lines.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The events of _IRimbal2Events. All arguments are 32-bit integers.
enum class RimbalEvent : DISPID {
    BlockReady = 1,  // a block is complete; take it with ReadBlock
    Position = 2,    // frames stored, left and right level
    Gain = 3         // new gain of the automatic gain control in percent
};

const automation::InterfaceDescription& RimbalEvents();

// The members of the capture companion that precede its mixer lines.
//
// A run begins with SetFormat, SetBufferFrames, PrepareDevice and StartDevice. Positions are the
// sample frames stored since then. Levels are the peaks since the event before, 0 … 32767, of the
// processed sound, whether it is stored or not.
//
// What is recorded passes the notch filter, the high-pass, the low-pass, the automatic gain control
// and the recording by sound, in this order. All settings take effect at once.
//
// After StopDevice no event of the run is raised, but ReadBlock still gives what was captured, the
// part of a block at the end too. When the device goes, a run stays and keeps what it has. Threads
// and waiting as for the playback companion (velto.h).
struct IRimbalCapture : public IDispatch {
    // Looks for the sound server, if it is not connected.
    virtual HRESULT STDMETHODCALLTYPE PrepareDevice() = 0;
    virtual HRESULT STDMETHODCALLTYPE StopDevice() = 0;
    // For the next start: Hz, limited to 100 … 768000, and 1 or 2 channels.
    virtual HRESULT STDMETHODCALLTYPE SetFormat(LONG sampleRate, LONG channels) = 0;
    // The next block of interleaved 16-bit frames, or an array without elements.
    // The array becomes the caller's.
    virtual HRESULT STDMETHODCALLTYPE ReadBlock(SAFEARRAY** samples) = 0;
    // The `count` frames captured last, fewer where fewer were captured; two seconds are kept. The
    // array becomes the caller's.
    virtual HRESULT STDMETHODCALLTYPE GetRecentSamples(LONG count, SAFEARRAY** samples) = 0;
    // Milliseconds between two Position events, limited to 5 … 1000.
    virtual HRESULT STDMETHODCALLTYPE put_TimerInterval(SHORT milliseconds) = 0;
    // Of each block, from the next start on; below 1: half a second.
    virtual HRESULT STDMETHODCALLTYPE SetBufferFrames(LONG frames) = 0;

    // Frequencies in Hz. A filter is off while its frequency is outside 1 Hz … 0.49 × rate.
    virtual HRESULT STDMETHODCALLTYPE get_NotchFilterFrequency(FLOAT* frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_NotchFilterFrequency(FLOAT frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_NotchFilterEnabled(VARIANT_BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_NotchFilterEnabled(VARIANT_BOOL enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HighPassFilterEnabled(VARIANT_BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_HighPassFilterEnabled(VARIANT_BOOL enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LowPassFilterEnabled(VARIANT_BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LowPassFilterEnabled(VARIANT_BOOL enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HighPassFilterFrequency(FLOAT* frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_HighPassFilterFrequency(FLOAT frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LowPassFilterFrequency(FLOAT* frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LowPassFilterFrequency(FLOAT frequency) = 0;

    // An ErrorConstants value, 0 for success.
    virtual HRESULT STDMETHODCALLTYPE StartDevice(LONG* error) = 0;

    // Device 1 is the server's default device, whichever that is. Never 0.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceCount(SHORT* count) = 0;
    // Of the selected device. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceName(BSTR* name) = 0;
    // From 1, limited. For the next start.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceNum(SHORT* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DeviceNum(SHORT number) = 0;
};

// The capture companion: records 16-bit samples from an input device.
struct IRimbal2 : public DeviceLineMembers<IRimbalCapture> {
    static constexpr IID Id = IID_IRimbal2;

    // Recording by sound: stored is what follows from where the level was above the attack level
    // for the attack time, which is stored too, until it was below the release level for the
    // release time. Levels 0 … 32767, times in milliseconds, 0 … 60000; both limited.
    virtual HRESULT STDMETHODCALLTYPE get_AccuAttackTime(LONG* milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuAttackTime(LONG milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuAttackLevel(LONG* level) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuAttackLevel(LONG level) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuReleaseTime(LONG* milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuReleaseTime(LONG milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuReleaseLevel(LONG* level) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuReleaseLevel(LONG level) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuEnabled(VARIANT_BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuEnabled(VARIANT_BOOL enabled) = 0;
    // The automatic gain control keeps peaks between the low and the high level; the attack time is
    // that in which it reaches another gain. Units and limits as above.
    virtual HRESULT STDMETHODCALLTYPE get_AGCLowLevel(LONG* level) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCLowLevel(LONG level) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AGCHighLevel(LONG* level) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCHighLevel(LONG level) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AGCAttackTime(LONG* milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCAttackTime(LONG milliseconds) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AGCEnabled(VARIANT_BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCEnabled(VARIANT_BOOL enabled) = 0;
};

const automation::LibraryDescription& RimbalLibrary();

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::IRimbal2>();
}  // namespace mavrin2::automation
