#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// What a file companion can say about a sound file beside its sound, for hosts that show it or warn
// of what gets lost. It is a separate class, KovDusoro2.Inspector, which the control does not use:
// another maker's companion need not have it.
//
// The sound need not be decoded for the properties that describe it. Reading it to its end finds
// the faults.
struct ISoundInspector : public IDispatch {
    static constexpr IID Id = IID_ISoundInspector;

    // Fails if the file cannot be opened as a sound file; the file before is closed all the same.
    virtual HRESULT STDMETHODCALLTYPE Inspect(BSTR fileName) = 0;
    // Decodes `count` sample frames more and drops them. Fewer were read only at the end.
    virtual HRESULT STDMETHODCALLTYPE Skip(LONG count, LONG* frames) = 0;

    // Readable: "FLAC 96000 Hz; 24 bit; stereo".
    virtual HRESULT STDMETHODCALLTYPE get_FormatText(BSTR* Value) = 0;
    // In hertz.
    virtual HRESULT STDMETHODCALLTYPE get_Frequency(LONG* Value) = 0;
    // Those of the file; as a document it has at most two.
    virtual HRESULT STDMETHODCALLTYPE get_Channels(LONG* Value) = 0;
    // Of a sample in the file; 16 where it has none, as in lossy formats.
    virtual HRESULT STDMETHODCALLTYPE get_BitsPerSample(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PlainPcm(VARIANT_BOOL* Value) = 0;
    // The length in sample frames; an estimate where the file does not state it.
    virtual HRESULT STDMETHODCALLTYPE get_Frames(DOUBLE* Value) = 0;
    // The length that the file states; 0 where it does not.
    virtual HRESULT STDMETHODCALLTYPE get_StatedFrames(DOUBLE* Value) = 0;

    // In what has been decoded: parts that the decoder refused or found damaged; samples beyond
    // full scale; whether the checksum of the whole sound differs, known after the last frame.
    virtual HRESULT STDMETHODCALLTYPE get_DamagedBlocks(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LimitedSamples(DOUBLE* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ChecksumDiffers(VARIANT_BOOL* Value) = 0;
    // Whether the file is cut, known after the last frame that is there.
    virtual HRESULT STDMETHODCALLTYPE get_EndMissing(VARIANT_BOOL* Value) = 0;
};

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::ISoundInspector>();
}  // namespace mavrin2::automation
