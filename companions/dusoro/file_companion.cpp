#include "companions/dusoro/file_companion.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

#include "automation/text.h"
#include "companions/dusoro/lame_settings_object.h"
#include "companions/dusoro/sound/format_converter.h"

namespace mavrin2::dusoro {
namespace {

using contracts::ErrorConstants;
using contracts::FormatTypeConstants;

// The core does not know automation, so it counts errors and kinds of files itself.
constexpr bool Same(SoundError a, ErrorConstants b) {
    return static_cast<std::int32_t>(a) == static_cast<std::int32_t>(b);
}
constexpr bool Same(FormatType a, FormatTypeConstants b) {
    return static_cast<std::int32_t>(a) == static_cast<std::int32_t>(b);
}
static_assert(Same(SoundError::Memory, ErrorConstants::MEMORY) &&
              Same(SoundError::FormatFile, ErrorConstants::FORMATFILE) &&
              Same(SoundError::FormatNotSupported, ErrorConstants::FORMATNOTSUPPORT) &&
              Same(SoundError::AcmDriver, ErrorConstants::ACMDRIVER) &&
              Same(SoundError::FileAccess, ErrorConstants::FILEACCESS));
static_assert(Same(FormatType::Wav, FormatTypeConstants::WAV) &&
              Same(FormatType::Mp3, FormatTypeConstants::MP3) &&
              Same(FormatType::Vox, FormatTypeConstants::VOX) &&
              Same(FormatType::Raw, FormatTypeConstants::RAW) &&
              Same(FormatType::G726, FormatTypeConstants::G726) &&
              Same(FormatType::Ogg, FormatTypeConstants::OGG) &&
              Same(FormatType::G721, FormatTypeConstants::G721) &&
              Same(FormatType::G723, FormatTypeConstants::G723) &&
              Same(FormatType::Avi, FormatTypeConstants::AVI) &&
              Same(FormatType::Mpc, FormatTypeConstants::MPC) &&
              Same(FormatType::Wma, FormatTypeConstants::WMA) &&
              Same(FormatType::Mp2, FormatTypeConstants::MP2) &&
              Same(FormatType::G729, FormatTypeConstants::G729));

HRESULT StatusOf(SoundError error) {
    return error == SoundError::None ? S_OK : E_FAIL;
}

// The path a host means; empty, which no file has, for a name that no file can have.
std::filesystem::path PathOf(BSTR name) {
    const automation::OleStringView text = automation::Bstr::View(name);
    return text.find(OLECHAR{0}) == automation::OleStringView::npos ? automation::ToPath(text)
                                                                    : std::filesystem::path();
}

HRESULT Give(LONG* target, std::int64_t value) {
    if (!target) return E_POINTER;
    *target =
        static_cast<LONG>(std::min<std::int64_t>(value, std::numeric_limits<std::int32_t>::max()));
    return S_OK;
}

OutputFormat Compressed(Coding kind, PcmFormat format, BitRates rates) {
    OutputFormat made{kind, format};
    made.Rates = rates;
    return made;
}

OutputFormat FormatOf(contracts::ILameSettings& settings) {
    const contracts::LameSettings read = ReadLameSettings(settings);
    OutputFormat format{Coding::Mp3, {read.Frequency, read.Channels}};
    format.Lame = read;
    if (read.VbrCodingMethod < 0) format.Rates.Nominal = read.Bitrate;
    return format;
}

}  // namespace

void* FileCompanion::FindInterface(REFIID iid) {
    return IsEqualGUID(iid, automation::ILimitedSamples::Id)
               ? static_cast<automation::ILimitedSamples*>(&limitedSamples_)
               : nullptr;
}

STDMETHODIMP FileCompanion::OpenSoundFile(BSTR fileName, LONG formatType, LONG) {
    return automation::Guarded([&] {
        Drop();
        error_ = SoundError::Memory;  // what stays when memory runs out on the way
        auto opened =
            files_.Open(PathOf(fileName), static_cast<FormatType>(formatType), settings_.Chosen);
        reader_ = std::move(opened.Result);
        error_ = opened.Error;
        return StatusOf(error_);
    });
}

STDMETHODIMP FileCompanion::CreateSoundFile(BSTR fileName, LONG formatType) {
    return automation::Guarded([&] {
        Drop();
        error_ = SoundError::Memory;
        if (lame_) settings_.Chosen = Nearest(FormatOf(*lame_.Get()));
        auto created =
            files_.Create(PathOf(fileName), static_cast<FormatType>(formatType), settings_);
        writer_ = std::move(created.Result);
        error_ = created.Error;
        return StatusOf(error_);
    });
}

STDMETHODIMP FileCompanion::CloseFile() {
    return automation::Guarded([&]() -> HRESULT {
        if (outputFailed_) {
            Drop();
            return E_FAIL;
        }
        // A document of no samples ends here as well: the converters have to be told.
        if (writer_ && !(BeginWriting() && writer_->Finish())) {
            FailOutput();
            outputFailed_ = false;
            return E_FAIL;
        }
        Drop();
        return S_OK;
    });
}

STDMETHODIMP FileCompanion::WriteBlock(SAFEARRAY* samples) {
    return automation::Guarded([&]() -> HRESULT {
        if (!writer_) return outputFailed_ ? E_FAIL : E_UNEXPECTED;
        const automation::ArrayView<std::int16_t> view(samples);
        try {
            return BeginWriting() && Write(view.Elements()) ? S_OK : FailOutput();
        } catch (...) {
            FailOutput();
            throw;
        }
    });
}

// Blocks need not end with a frame: those of a stereo document at an odd rate do not.
bool FileCompanion::Write(std::span<const std::int16_t> samples) {
    if (settings_.Document.Channels == 1) return writer_->Write(samples);
    if (half_ && !samples.empty()) {
        const std::array<std::int16_t, 2> frame = {*half_, samples.front()};
        half_.reset();
        if (!writer_->Write(frame)) return false;
        samples = samples.subspan(1);
    }
    if (samples.size() % 2 != 0) {
        half_ = samples.back();
        samples = samples.first(samples.size() - 1);
    }
    return writer_->Write(samples);
}

STDMETHODIMP FileCompanion::ReadBlock(LONG count, SAFEARRAY** samples) {
    return automation::Guarded([&]() -> HRESULT {
        if (!samples) return E_POINTER;
        *samples = nullptr;
        if (count < 0) return E_INVALIDARG;
        if (!reader_) return E_UNEXPECTED;
        if (!BeginReading()) return E_FAIL;
        *samples = Read(static_cast<std::size_t>(count)).Detach();
        return S_OK;
    });
}

// Room for no more than the file says it has, and then for as much as there turns out to be.
automation::SafeArray<std::int16_t> FileCompanion::Read(std::size_t frames) {
    constexpr std::int64_t kMargin = 4096;
    const auto channels = static_cast<std::size_t>(reader_->Description().Delivered.Channels);
    const std::int64_t told =
        std::max<std::int64_t>(0, reader_->Description().Frames - framesRead_);
    std::size_t room = std::min(frames, static_cast<std::size_t>(told + kMargin));
    automation::SafeArray<std::int16_t> block(room * channels);
    std::size_t filled = 0;
    while (true) {
        {
            const automation::ArrayView<std::int16_t> view(block.Get());
            filled += reader_->Read(view.Elements().subspan(filled * channels));
        }
        if (filled < room || room == frames) break;
        room = std::min(frames, room * 2);
        block.Resize(room * channels);
    }
    if (filled < room) block.Resize(filled * channels);
    framesRead_ += static_cast<std::int64_t>(filled);
    return block;
}

STDMETHODIMP FileCompanion::SetPcmFormat(LONG frequency, LONG channels) {
    return automation::Guarded([&]() -> HRESULT {
        const PcmFormat format{frequency, channels};
        if (!format.IsUsable()) return E_INVALIDARG;
        const PcmFormat present = reader_ ? Described().Carried : settings_.Document;
        if (begun_ && format != present) return E_UNEXPECTED;  // not in the middle of a sound
        if (reader_) {
            wanted_ = format;
        } else {
            settings_.Document = format;
        }
        return S_OK;
    });
}

// A choice is kept as the nearest that its format has.
HRESULT FileCompanion::Choose(const OutputFormat& format) {
    lame_.Reset();
    settings_.Chosen = Nearest(format);
    return S_OK;
}

HRESULT FileCompanion::Answer(VARIANT_BOOL* target, const OutputFormat& format) const {
    return automation::Guarded([&]() -> HRESULT {
        if (!target) return E_POINTER;
        *target = VARIANT_FALSE;
        const OutputFormat nearest = Nearest(format);
        const bool exact = nearest.Format == format.Format && nearest.Rates == format.Rates;
        if (exact && files_.Has(format)) *target = VARIANT_TRUE;
        return S_OK;
    });
}

STDMETHODIMP FileCompanion::IsFormatMpegAvailable(LONG frequency, LONG bitrate, LONG channels,
                                                  VARIANT_BOOL* available) {
    return Answer(available, Compressed(Coding::Mp3, {frequency, channels}, {bitrate}));
}

STDMETHODIMP FileCompanion::IsFormatOggVorbisAvailable(LONG frequency, LONG channels,
                                                       LONG nominalBitrate, LONG minBitrate,
                                                       LONG maxBitrate, VARIANT_BOOL* available) {
    return Answer(available, Compressed(Coding::Vorbis, {frequency, channels},
                                        {nominalBitrate, minBitrate, maxBitrate}));
}

// There is no dialog here, so nothing is chosen.
STDMETHODIMP FileCompanion::SetFormatFromMenu(VARIANT_BOOL* chosen) {
    if (!chosen) return E_POINTER;
    *chosen = VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP FileCompanion::SetFormatLikeSample(BSTR fileName) {
    return automation::Guarded([&]() -> HRESULT {
        const auto opened = files_.Open(PathOf(fileName), FormatType::Default, settings_.Chosen);
        if (!opened) return StatusOf(opened.Error);
        const auto& format = opened.Result->Description().Format;
        return format ? Choose(*format) : S_FALSE;
    });
}

STDMETHODIMP FileCompanion::SetFormatPCM(LONG frequency, LONG channels, LONG bitsPerSample) {
    return Choose({Coding::Pcm, {frequency, channels}, bitsPerSample});
}

STDMETHODIMP FileCompanion::SetFormatRAW(LONG typeCompress, LONG frequency, LONG channels,
                                         LONG bitsPerSample) {
    static constexpr Coding kCodings[] = {Coding::Pcm, Coding::ALaw,     Coding::MuLaw,
                                          Coding::Gsm, Coding::ImaAdpcm, Coding::MsAdpcm};
    constexpr LONG kLast = static_cast<LONG>(std::size(kCodings));
    OutputFormat format{kCodings[std::clamp<LONG>(typeCompress, 1, kLast) - 1],
                        {frequency, channels},
                        bitsPerSample};
    format.Headerless = true;
    return Choose(format);
}

STDMETHODIMP FileCompanion::SetFormatALAW(LONG frequency, LONG channels) {
    return Choose({Coding::ALaw, {frequency, channels}});
}

STDMETHODIMP FileCompanion::SetFormatULAW(LONG frequency, LONG channels) {
    return Choose({Coding::MuLaw, {frequency, channels}});
}

STDMETHODIMP FileCompanion::SetFormatADPCM(LONG frequency, LONG channels) {
    return Choose({Coding::MsAdpcm, {frequency, channels}});
}

STDMETHODIMP FileCompanion::SetFormatGSM(LONG frequency) {
    return Choose({Coding::Gsm, {frequency, 1}});
}

STDMETHODIMP FileCompanion::SetFormatVOX(LONG frequency) {
    return Choose({Coding::Vox, {frequency, 1}});
}

STDMETHODIMP FileCompanion::SetFormatDSP() {
    return Choose({Coding::Dsp, {8000, 1}});
}

STDMETHODIMP FileCompanion::SetFormatMP2(LONG frequency, LONG bitrate, LONG channels) {
    return Choose(Compressed(Coding::Mp2, {frequency, channels}, {bitrate}));
}

STDMETHODIMP FileCompanion::SetFormatMP3(LONG frequency, LONG bitrate, LONG channels) {
    return Choose(Compressed(Coding::Mp3, {frequency, channels}, {bitrate}));
}

STDMETHODIMP FileCompanion::SetFormatMP3Ex(contracts::ILameSettings* settings) {
    return automation::Guarded([&] {
        if (!settings) return;
        automation::ComPtr<contracts::ILameSettings> given(settings);
        Choose(FormatOf(*given.Get()));
        lame_ = std::move(given);
    });
}

STDMETHODIMP FileCompanion::SetFormatOggVorbis(LONG frequency, LONG channels, LONG nominalBitrate,
                                               LONG minBitrate, LONG maxBitrate, LONG quality) {
    constexpr LONG kNoQuality = 65535;
    OutputFormat format =
        Compressed(Coding::Vorbis, {frequency, channels}, {nominalBitrate, minBitrate, maxBitrate});
    if (quality != kNoQuality) format.Quality = quality;
    return Choose(format);
}

STDMETHODIMP FileCompanion::SetFormatWMA(LONG profile) {
    return Choose(WmaProfile(profile));
}

STDMETHODIMP FileCompanion::SetFormatG721(LONG frequency) {
    return Choose({Coding::G721, {frequency, 1}});
}

STDMETHODIMP FileCompanion::SetFormatG723(LONG frequency, LONG bitsPerSample) {
    return Choose({Coding::G723, {frequency, 1}, bitsPerSample});
}

STDMETHODIMP FileCompanion::SetFormatG726(LONG frequency, LONG bitsPerSample) {
    return Choose({Coding::G726, {frequency, 1}, bitsPerSample});
}

// A host may ask for a format more than once: the conversion is made when it counts.
bool FileCompanion::BeginReading() {
    if (!begun_ && wanted_ && !files_.ReadAs(reader_, *wanted_)) return false;
    wanted_.reset();
    begun_ = true;
    return true;
}

bool FileCompanion::BeginWriting() {
    if (!begun_ && !files_.WriteFrom(writer_, settings_.Document)) return false;
    begun_ = true;
    return true;
}

HRESULT FileCompanion::FailOutput() {
    Drop();
    error_ = SoundError::FileAccess;
    outputFailed_ = true;
    return E_FAIL;
}

std::int64_t FileCompanion::LimitedInFile() const {
    if (reader_) return reader_->LimitedByConversion();
    return writer_ ? writer_->LimitedByConversion() : 0;
}

void FileCompanion::Drop() {
    limitedBefore_ += LimitedInFile();
    reader_.reset();
    writer_.reset();
    wanted_.reset();
    half_.reset();
    begun_ = outputFailed_ = false;
    framesRead_ = 0;
}

OutputDescription FileCompanion::Described() const {
    if (writer_) return writer_->Description();
    if (reader_) {
        const SourceDescription& source = reader_->Description();
        return {wanted_.value_or(source.Delivered), source.BitsPerSample, source.PlainPcm,
                source.Text};
    }
    // What the settings of MP3 are now, which their object may have changed.
    const OutputFormat format = lame_ ? Nearest(FormatOf(*lame_.Get())) : settings_.Chosen;
    const bool pcm = format.Kind == Coding::Pcm;
    return {format.Format, pcm ? format.Bits : 16, pcm, TextOf(format)};
}

STDMETHODIMP FileCompanion::GetLength(LONG* frames) {
    std::int64_t length = 0;
    if (reader_) {
        const SourceDescription& source = reader_->Description();
        length = FramesAtRate(source.Frames, source.Delivered.Rate,
                              wanted_.value_or(source.Delivered).Rate);
    }
    return Give(frames, length);
}

STDMETHODIMP FileCompanion::GetSourceFrequency(LONG* frequency) {
    return Give(frequency, reader_ ? reader_->Description().SourceRate : settings_.Document.Rate);
}

STDMETHODIMP FileCompanion::GetFormatText(BSTR* text) {
    return automation::Guarded([&]() -> HRESULT {
        if (!text) return E_POINTER;
        *text = nullptr;
        *text = automation::NewBstr(Described().Text);
        return S_OK;
    });
}

STDMETHODIMP FileCompanion::GetBitsPerSample(LONG* bits) {
    return automation::Guarded([&] { return Give(bits, Described().BitsPerSample); });
}

STDMETHODIMP FileCompanion::GetErrorCode(LONG* code) {
    return Give(code, static_cast<std::int32_t>(error_));
}

STDMETHODIMP FileCompanion::GetChannels(LONG* channels) {
    return automation::Guarded([&] { return Give(channels, Described().Carried.Channels); });
}

STDMETHODIMP FileCompanion::GetFrequency(LONG* frequency) {
    return automation::Guarded([&] { return Give(frequency, Described().Carried.Rate); });
}

STDMETHODIMP FileCompanion::GetFormatKind(LONG* kind) {
    return automation::Guarded([&] { return Give(kind, Described().PlainPcm ? 1 : 0); });
}

STDMETHODIMP FileCompanion::SetWmaMode(LONG) {
    return S_OK;  // these files are read and written like all others
}

}  // namespace mavrin2::dusoro
