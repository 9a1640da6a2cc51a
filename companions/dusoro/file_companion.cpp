#include "companions/dusoro/file_companion.h"

#include <algorithm>
#include <array>
#include <limits>

#include "automation/text.h"
#include "companions/dusoro/sound/format_converter.h"
#include "companions/dusoro/sound/format_text.h"

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

}  // namespace

STDMETHODIMP FileCompanion::OpenSoundFile(BSTR fileName, LONG formatType, LONG) {
    return automation::Guarded([&] {
        Drop();
        error_ = SoundError::Memory;  // what stays when memory runs out on the way
        auto opened = files_.Open(PathOf(fileName), static_cast<FormatType>(formatType));
        reader_ = std::move(opened.Result);
        error_ = opened.Error;
        return StatusOf(error_);
    });
}

STDMETHODIMP FileCompanion::CreateSoundFile(BSTR fileName, LONG formatType) {
    return automation::Guarded([&] {
        Drop();
        error_ = SoundError::Memory;
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

STDMETHODIMP FileCompanion::SetFormatVOX(LONG frequency) {
    if (frequency < 1 || frequency > kHighestRate) return E_INVALIDARG;
    settings_.VoxRate = frequency;
    settings_.Pcm.reset();
    settings_.BitsPerSample = 16;
    return S_OK;
}

STDMETHODIMP FileCompanion::SetFormatPCM(LONG frequency, LONG channels, LONG bitsPerSample) {
    const PcmFormat format{frequency, channels};
    if (!format.IsUsable() || bitsPerSample % 8 != 0 || bitsPerSample < 8 || bitsPerSample > 32)
        return E_INVALIDARG;
    settings_.Pcm = format;
    settings_.BitsPerSample = bitsPerSample;
    return S_OK;
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

void FileCompanion::Drop() {
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
    if (settings_.Pcm)
        return {*settings_.Pcm, settings_.BitsPerSample, true,
                TextWithBits("PCM", settings_.Pcm->Rate, settings_.BitsPerSample,
                             settings_.Pcm->Channels)};
    return {{settings_.VoxRate, 1}, 16, false, TextWithBits("VOX ADPCM", settings_.VoxRate, 4, 1)};
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
    return S_OK;  // these files are read like all others
}

}  // namespace mavrin2::dusoro
