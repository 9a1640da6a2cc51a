#include "companions/dusoro/backends/lame/lame_writer.h"

#include <algorithm>
#include <cstdarg>

#include "companions/dusoro/backends/lame/lame_parameters.h"
#include "companions/dusoro/sound/format_text.h"

namespace mavrin2::dusoro {
namespace {

constexpr std::size_t kBlockFrames = 18'432;  // 16 frames of MPEG

// The library's messages are for debugging it.
void Quiet(const char*, va_list) {}

}  // namespace

Outcome<std::unique_ptr<SoundWriter>> LameWriter::Create(platform::File& file,
                                                         const OutputPlan& plan) {
    Encoder encoder(lame_init());
    if (!encoder) return SoundError::Memory;
    lame_global_flags* flags = encoder.get();
    lame_set_errorf(flags, Quiet);
    lame_set_debugf(flags, Quiet);
    lame_set_msgf(flags, Quiet);
    const auto [rate, channels] = plan.Format.Format;
    lame_set_in_samplerate(flags, rate);
    lame_set_out_samplerate(flags, rate);
    lame_set_num_channels(flags, channels);
    lame_set_write_id3tag_automatic(flags, 0);
    if (plan.Format.Lame)
        ApplySettings(flags, *plan.Format.Lame, rate, channels);
    else
        ApplyConstantRate(flags, plan.Format);
    if (lame_init_params(flags) < 0) return SoundError::FormatNotSupported;

    // A mean bit rate is what variable rates turn out to have.
    const int bitRate = lame_get_VBR(flags) == vbr_off   ? lame_get_brate(flags)
                        : lame_get_VBR(flags) == vbr_abr ? lame_get_VBR_mean_bitrate_kbps(flags)
                                                         : 0;
    OutputDescription description{
        plan.Format.Format, 16, false,
        TextWithBitRate("MP3", rate, std::int64_t{bitRate} * 1000, channels)};
    return std::unique_ptr<SoundWriter>(
        new LameWriter(file, std::move(encoder), std::move(description)));
}

bool LameWriter::Write(std::span<const std::int16_t> samples) {
    const std::size_t block =
        kBlockFrames * static_cast<std::size_t>(description_.Carried.Channels);
    while (!samples.empty()) {
        const auto part = samples.first(std::min(block, samples.size()));
        if (!Encode(part)) return false;
        samples = samples.subspan(part.size());
    }
    return true;
}

bool LameWriter::Encode(std::span<const std::int16_t> samples) {
    // The library's own bound for what a call can give.
    encoded_.resize(kBlockFrames * 5 / 4 + 7200);
    const auto size = static_cast<int>(encoded_.size());
    // It only reads them, although it does not say so.
    auto* in = const_cast<short*>(samples.data());
    const bool stereo = description_.Carried.Channels == 2;
    const auto frames = static_cast<int>(samples.size() / (stereo ? 2 : 1));
    return Store(
        stereo ? lame_encode_buffer_interleaved(encoder_.get(), in, frames, encoded_.data(), size)
               : lame_encode_buffer(encoder_.get(), in, nullptr, frames, encoded_.data(), size));
}

bool LameWriter::Store(int count) {
    if (count < 0) return false;
    const auto bytes = std::as_bytes(std::span(encoded_).first(static_cast<std::size_t>(count)));
    if (!file_.Write(position_, bytes)) return false;
    position_ += count;
    return true;
}

bool LameWriter::Finish() {
    encoded_.resize(std::max<std::size_t>(encoded_.size(), 7200));
    if (!Store(
            lame_encode_flush(encoder_.get(), encoded_.data(), static_cast<int>(encoded_.size()))))
        return false;
    const std::size_t tag =
        lame_get_lametag_frame(encoder_.get(), encoded_.data(), encoded_.size());
    if (tag > encoded_.size()) return false;
    // Without a tag frame its place is sound.
    return tag == 0 || file_.Write(0, std::as_bytes(std::span(encoded_).first(tag)));
}

}  // namespace mavrin2::dusoro
