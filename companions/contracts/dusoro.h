#pragma once

#include "companions/contracts/constants.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The file companion: reads sound files of many formats and writes one. It holds at most one open
// file, for reading or for writing, and the output format chosen last.
//
// Samples pass as one-dimensional arrays of signed 16-bit integers with lower bound 0, interleaved
// (left then right), mono or stereo. Formats and file names as the host gave them. The outcome of
// OpenSoundFile and CreateSoundFile is what GetErrorCode returns. WriteBlock and CloseFile fail
// with a status; GetErrorCode then returns the reason, and no output file is left.
struct IDusoro2 : public IDispatch {
    static constexpr IID Id = IID_IDusoro2;

    // `formatType` is a FormatTypeConstants value; `flag` is 1. Whatever was open is closed; an
    // output file that was not completed is given up.
    virtual HRESULT STDMETHODCALLTYPE OpenSoundFile(BSTR fileName, LONG formatType, LONG flag) = 0;
    // Completes an output file, which only then takes its name; closes an input file.
    virtual HRESULT STDMETHODCALLTYPE CloseFile() = 0;
    // Starts an output file in the current output format.
    virtual HRESULT STDMETHODCALLTYPE CreateSoundFile(BSTR fileName, LONG formatType) = 0;
    // The array stays the caller's.
    virtual HRESULT STDMETHODCALLTYPE WriteBlock(SAFEARRAY* samples) = 0;
    // The next `count` sample frames, fewer at the end, an empty array after it. The
    // array becomes the caller's.
    virtual HRESULT STDMETHODCALLTYPE ReadBlock(LONG count, SAFEARRAY** samples) = 0;
    MAVRIN2_RESERVED(IsFormatMpegAvailable, 6)
    MAVRIN2_RESERVED(IsFormatOggVorbisAvailable, 7)
    // The format in which the caller delivers samples (set before CreateSoundFile) or wants them
    // (set after OpenSoundFile).
    virtual HRESULT STDMETHODCALLTYPE SetPcmFormat(LONG frequency, LONG channels) = 0;
    MAVRIN2_RESERVED(SetFormatFromMenu, 9)
    MAVRIN2_RESERVED(SetFormatLikeSample, 10)
    // Chooses PCM for the next output file, of 8, 16, 24 or 32 bits.
    virtual HRESULT STDMETHODCALLTYPE SetFormatPCM(LONG frequency, LONG channels,
                                                   LONG bitsPerSample) = 0;
    MAVRIN2_RESERVED(SetFormatRAW, 12)
    MAVRIN2_RESERVED(SetFormatALAW, 13)
    MAVRIN2_RESERVED(SetFormatULAW, 14)
    MAVRIN2_RESERVED(SetFormatADPCM, 15)
    MAVRIN2_RESERVED(SetFormatGSM, 16)
    // Chooses headerless 4-bit ADPCM for the next output file.
    virtual HRESULT STDMETHODCALLTYPE SetFormatVOX(LONG frequency) = 0;
    MAVRIN2_RESERVED(SetFormatDSP, 18)
    MAVRIN2_RESERVED(SetFormatMP2, 19)
    MAVRIN2_RESERVED(SetFormatMP3, 20)
    MAVRIN2_RESERVED(SetFormatMP3Ex, 21)
    MAVRIN2_RESERVED(SetFormatOggVorbis, 22)
    MAVRIN2_RESERVED(SetFormatWMA, 23)
    MAVRIN2_RESERVED(SetFormatG721, 24)
    MAVRIN2_RESERVED(SetFormatG723, 25)
    MAVRIN2_RESERVED(SetFormatG726, 26)
    // The open file's length in sample frames as ReadBlock delivers them.
    virtual HRESULT STDMETHODCALLTYPE GetLength(LONG* frames) = 0;
    // The sample rate in the file itself.
    virtual HRESULT STDMETHODCALLTYPE GetSourceFrequency(LONG* frequency) = 0;
    // Readable, of the open file or of the output format. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE GetFormatText(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetBitsPerSample(LONG* bits) = 0;
    // The ErrorConstants value of the last file operation.
    virtual HRESULT STDMETHODCALLTYPE GetErrorCode(LONG* code) = 0;
    // Channels of what ReadBlock delivers, 1 or 2.
    virtual HRESULT STDMETHODCALLTYPE GetChannels(LONG* channels) = 0;
    // The rate of what ReadBlock delivers; after CreateSoundFile, of the output file.
    virtual HRESULT STDMETHODCALLTYPE GetFrequency(LONG* frequency) = 0;
    // 1 when the file or the output format is plain PCM.
    virtual HRESULT STDMETHODCALLTYPE GetFormatKind(LONG* kind) = 0;
    // 1 before a file whose name ends in ".wma" is opened or written.
    virtual HRESULT STDMETHODCALLTYPE SetWmaMode(LONG on) = 0;
};

const automation::LibraryDescription& DusoroLibrary();

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::IDusoro2>();
}  // namespace mavrin2::automation
