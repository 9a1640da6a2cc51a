#include "companions/dusoro/backends/sndfile/sndfile_writer.h"

#include <algorithm>
#include <array>
#include <limits>

#include "companions/dusoro/sound/format_text.h"

namespace mavrin2::dusoro {
namespace {

// Between transparent and small; about 160 kbit/s for stereo at 44100 Hz.
constexpr double kVorbisQuality = 0.5;
constexpr std::size_t kBlock = 16384;

int PcmSubtype(Container kind, std::int32_t bits) {
    switch (bits) {
        case 8:
            return kind == Container::Wav ? SF_FORMAT_PCM_U8 : SF_FORMAT_PCM_S8;
        case 24:
            return SF_FORMAT_PCM_24;
        case 32:
            return SF_FORMAT_PCM_32;
        default:
            return SF_FORMAT_PCM_16;
    }
}

int SndfileFormat(const OutputPlan& plan) {
    switch (plan.Kind) {
        case Container::Wav:
            return SF_FORMAT_WAV | PcmSubtype(plan.Kind, plan.BitsPerSample);
        case Container::Aiff:
            return SF_FORMAT_AIFF | PcmSubtype(plan.Kind, plan.BitsPerSample);
        case Container::Flac:
            return SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
        case Container::OggVorbis:
            return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
        case Container::Opus:
            return SF_FORMAT_OGG | SF_FORMAT_OPUS;
        case Container::Vox:
            return SF_FORMAT_RAW | SF_FORMAT_VOX_ADPCM;
        default:
            return 0;
    }
}

bool IsPcm(Container kind) {
    return kind == Container::Wav || kind == Container::Aiff;
}

OutputDescription Describe(const OutputPlan& plan) {
    const auto [rate, channels] = plan.Carried;
    OutputDescription made{plan.Carried, 16, IsPcm(plan.Kind), {}};
    switch (plan.Kind) {
        case Container::Flac:
            made.Text = TextWithBits("FLAC", rate, 16, channels);
            break;
        case Container::OggVorbis:
            made.Text = TextWithBitRate("Ogg Vorbis", rate, 0, channels);
            break;
        case Container::Opus:
            made.Text = TextWithBitRate("Opus", rate, 0, channels);
            break;
        case Container::Vox:
            made.Text = TextWithBits("VOX ADPCM", rate, 4, channels);
            break;
        default:
            made.BitsPerSample = plan.BitsPerSample;
            made.Text = TextWithBits("PCM", rate, plan.BitsPerSample, channels);
    }
    return made;
}

}  // namespace

Outcome<std::unique_ptr<SoundWriter>> SndfileWriter::Create(platform::File& file,
                                                            const OutputPlan& plan) {
    std::unique_ptr<SndfileWriter> writer(new SndfileWriter(plan));
    writer->stream_.File = &file;
    SF_INFO info{};
    info.samplerate = plan.Carried.Rate;
    info.channels = plan.Carried.Channels;
    info.format = SndfileFormat(plan);
    writer->handle_.reset(writer->stream_.Open(SFM_WRITE, info));
    if (writer->stream_.Failed) return SoundError::FileAccess;
    if (!writer->handle_) return SoundError::FormatNotSupported;
    if (plan.Kind == Container::OggVorbis) {
        double quality = kVorbisQuality;
        sf_command(writer->handle_.get(), SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    }
    return std::unique_ptr<SoundWriter>(std::move(writer));
}

SndfileWriter::SndfileWriter(const OutputPlan& plan) : plan_(plan), description_(Describe(plan)) {
    // The sizes in their headers have 32 bits; 4096 bytes are left for the headers.
    bytesLeft_ = IsPcm(plan.Kind) ? std::int64_t{0xFFFFFFFF} - 4096
                                  : std::numeric_limits<std::int64_t>::max();
}

bool SndfileWriter::Write(std::span<const std::int16_t> samples) {
    bytesLeft_ -= static_cast<std::int64_t>(samples.size()) * plan_.BitsPerSample / 8;
    if (bytesLeft_ < 0) return false;
    if (plan_.Kind == Container::Vox) return AppendInPairs(samples);
    return plan_.BitsPerSample == 8 ? AppendAsBytes(samples) : Append(samples);
}

bool SndfileWriter::Append(std::span<const std::int16_t> samples) {
    const auto count = static_cast<sf_count_t>(samples.size());
    return sf_write_short(handle_.get(), samples.data(), count) == count && !stream_.Failed;
}

// libsndfile cuts the lower half off; here it rounds to the nearest first.
bool SndfileWriter::AppendAsBytes(std::span<const std::int16_t> samples) {
    block_.resize(kBlock);
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), kBlock));
        std::transform(part.begin(), part.end(), block_.begin(), [](std::int16_t x) {
            const int even = (x >> 8) & 1;
            return static_cast<std::int16_t>(std::min(x + 127 + even, 32767) & ~0xFF);
        });
        if (!Append(std::span(block_).first(part.size()))) return false;
        samples = samples.subspan(part.size());
    }
    return true;
}

// A byte holds two samples, and libsndfile fills up the last byte of every call.
bool SndfileWriter::AppendInPairs(std::span<const std::int16_t> samples) {
    if (held_ && !samples.empty()) {
        const std::array<std::int16_t, 2> pair = {*held_, samples.front()};
        held_.reset();
        if (!Append(pair)) return false;
        samples = samples.subspan(1);
    }
    if (samples.size() % 2 != 0) {
        held_ = samples.back();
        samples = samples.first(samples.size() - 1);
    }
    return samples.empty() || Append(samples);
}

bool SndfileWriter::Finish() {
    if (held_) {
        const std::array<std::int16_t, 2> pair = {*held_, 0};
        if (!Append(pair)) return false;
    }
    return sf_close(handle_.release()) == 0 && !stream_.Failed;
}

}  // namespace mavrin2::dusoro
