#pragma once

#include "companions/contracts/constants.h"
#include "companions/contracts/identifiers.h"
#include "companions/contracts/lame_settings_interface.h"

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
    // Whether MP3 has exactly this rate (hertz), bit rate (kbit/s) and channel count.
    virtual HRESULT STDMETHODCALLTYPE IsFormatMpegAvailable(LONG frequency, LONG bitrate,
                                                            LONG channels,
                                                            VARIANT_BOOL* available) = 0;
    // The same of Ogg Vorbis; a minimum or maximum of 0 is none.
    virtual HRESULT STDMETHODCALLTYPE IsFormatOggVorbisAvailable(LONG frequency, LONG channels,
                                                                 LONG nominalBitrate,
                                                                 LONG minBitrate, LONG maxBitrate,
                                                                 VARIANT_BOOL* available) = 0;
    // The format in which the caller delivers samples (set before CreateSoundFile) or wants them
    // (set after OpenSoundFile).
    virtual HRESULT STDMETHODCALLTYPE SetPcmFormat(LONG frequency, LONG channels) = 0;
    // Each of the following chooses the format of the next output file: rate in hertz, 1 or 2
    // channels, bit rates in kbit/s. Values that the format does not have become the nearest that
    // it has.
    //
    // Lets the user choose. False, and nothing has changed, when there is no dialog for it.
    virtual HRESULT STDMETHODCALLTYPE SetFormatFromMenu(VARIANT_BOOL* chosen) = 0;
    // The format of an existing file, if that is a format written here.
    virtual HRESULT STDMETHODCALLTYPE SetFormatLikeSample(BSTR fileName) = 0;
    // 8, 16, 24 or 32 bits.
    virtual HRESULT STDMETHODCALLTYPE SetFormatPCM(LONG frequency, LONG channels,
                                                   LONG bitsPerSample) = 0;
    // Without a header: 1 PCM, 2 A-law, 3 u-law, 4 GSM, 5 IMA ADPCM, 6 MS ADPCM. The bits are those
    // of PCM.
    virtual HRESULT STDMETHODCALLTYPE SetFormatRAW(LONG typeCompress, LONG frequency, LONG channels,
                                                   LONG bitsPerSample) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatALAW(LONG frequency, LONG channels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatULAW(LONG frequency, LONG channels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatADPCM(LONG frequency, LONG channels) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatGSM(LONG frequency) = 0;
    // Headerless 4-bit ADPCM, mono.
    virtual HRESULT STDMETHODCALLTYPE SetFormatVOX(LONG frequency) = 0;
    // Has no encoder: CreateSoundFile fails with ACMDRIVER.
    virtual HRESULT STDMETHODCALLTYPE SetFormatDSP() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatMP2(LONG frequency, LONG bitrate, LONG channels) = 0;
    // A bit rate of 0 is the companion's choice.
    virtual HRESULT STDMETHODCALLTYPE SetFormatMP3(LONG frequency, LONG bitrate, LONG channels) = 0;
    // The object is kept and read whenever an output file is started. Null changes nothing.
    virtual HRESULT STDMETHODCALLTYPE SetFormatMP3Ex(ILameSettings* settings) = 0;
    // A minimum or maximum of 0 is none. With a quality of 0 ... 10 the bit rates are ignored;
    // 65535 is none.
    virtual HRESULT STDMETHODCALLTYPE SetFormatOggVorbis(LONG frequency, LONG channels,
                                                         LONG nominalBitrate, LONG minBitrate,
                                                         LONG maxBitrate, LONG quality) = 0;
    // A row of the table in docs/formats.md.
    virtual HRESULT STDMETHODCALLTYPE SetFormatWMA(LONG profile) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormatG721(LONG frequency) = 0;
    // 3 or 5 bits.
    virtual HRESULT STDMETHODCALLTYPE SetFormatG723(LONG frequency, LONG bitsPerSample) = 0;
    // 2 to 5 bits.
    virtual HRESULT STDMETHODCALLTYPE SetFormatG726(LONG frequency, LONG bitsPerSample) = 0;

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
