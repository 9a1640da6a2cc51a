#include "companions/dusoro/backends/sndfile/sndfile_writer.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "companions/dusoro/backends/sndfile/headerless.h"

namespace mavrin2::dusoro {
namespace {

// Between transparent and small; about 160 kbit/s for stereo at 44100 Hz.
constexpr double kVorbisQuality = 0.5;
constexpr std::size_t kBlock = 16384;

bool IsPcm(const OutputPlan& plan) {
    return plan.Format.Kind == Coding::Pcm;
}

// Codings whose last block is filled up, in a file that can say how much of it is sound.
bool CountsFrames(const OutputPlan& plan) {
    using enum Coding;
    const Coding kind = plan.Format.Kind;
    return plan.File == Container::Wav && (kind == MsAdpcm || kind == ImaAdpcm || kind == Gsm);
}

OutputDescription Describe(const OutputPlan& plan) {
    return {plan.Format.Format, IsPcm(plan) ? plan.Format.Bits : 16, IsPcm(plan),
            TextOf(plan.Format)};
}

}  // namespace

Outcome<std::unique_ptr<SoundWriter>> SndfileWriter::Create(platform::File& file,
                                                            const OutputPlan& plan) {
    std::unique_ptr<SndfileWriter> writer(new SndfileWriter(file, plan));
    if (NeedsHiddenHeader(plan.Format, plan.File)) {
        writer->beheaded_ = WithoutHeader(file, WavHeader(plan.Format).size());
        writer->stream_.File = writer->beheaded_.get();
    }
    SF_INFO info{};
    info.samplerate = plan.Format.Format.Rate;
    info.channels = plan.Format.Format.Channels;
    info.format = SndfileFormatOf(plan.Format, writer->beheaded_ ? Container::Wav : plan.File);
    writer->handle_.reset(writer->stream_.Open(SFM_WRITE, info));
    if (writer->stream_.Failed) return SoundError::FileAccess;
    if (!writer->handle_) return SoundError::FormatNotSupported;
    if (plan.Format.Kind == Coding::Vorbis) {
        double quality = plan.Format.Quality ? *plan.Format.Quality / 10.0 : kVorbisQuality;
        sf_command(writer->handle_.get(), SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    }
    return std::unique_ptr<SoundWriter>(std::move(writer));
}

SndfileWriter::SndfileWriter(platform::File& file, const OutputPlan& plan)
    : file_(file), plan_(plan), description_(Describe(plan)) {
    stream_.File = &file;
    // The sizes in the headers have 32 bits; 4096 bytes are left for the headers.
    const bool sized =
        plan.File == Container::Wav || plan.File == Container::Aiff || plan.File == Container::Au;
    bytesLeft_ = sized ? std::int64_t{0xFFFFFFFF} - 4096 : std::numeric_limits<std::int64_t>::max();
}

bool SndfileWriter::Write(std::span<const std::int16_t> samples) {
    const auto values = static_cast<std::int64_t>(samples.size());
    frames_ += values / plan_.Format.Format.Channels;
    bytesLeft_ -= values * (IsPcm(plan_) ? plan_.Format.Bits : 8) / 8;
    if (bytesLeft_ < 0) return false;
    if (plan_.Format.Kind == Coding::Vox) return AppendInPairs(samples);
    return IsPcm(plan_) && plan_.Format.Bits == 8 ? AppendAsBytes(samples) : Append(samples);
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
    if (sf_close(handle_.release()) != 0 || stream_.Failed) return false;
    return !CountsFrames(plan_) || StoreFrameCount();
}

// libsndfile counts whole blocks.
bool SndfileWriter::StoreFrameCount() {
    std::array<std::byte, 128> head{};
    const auto got = file_.Read(0, head);
    if (!got) return true;  // readers then get the whole last block
    const std::string_view text(reinterpret_cast<const char*>(head.data()), *got);
    const std::size_t chunk = text.find("fact");
    if (chunk == std::string_view::npos || chunk + 12 > *got) return true;
    std::array<std::byte, 4> count{};
    for (unsigned i = 0; i < count.size(); ++i)
        count[i] = static_cast<std::byte>(frames_ >> 8 * i);
    return file_.Write(static_cast<std::int64_t>(chunk) + 8, count);
}

}  // namespace mavrin2::dusoro
