#include "companions/dusoro/backends/ffmpeg/ffmpeg_writer.h"

#include <algorithm>

#include "companions/dusoro/backends/ffmpeg/av_encoder.h"

namespace mavrin2::dusoro {
namespace {

const char* MuxerName(Container container) {
    switch (container) {
        case Container::Mpeg:
            return "mp2";
        case Container::Ogg:
            return "ogg";
        case Container::Asf:
            return "asf";
        default:
            return "wav";
    }
}

}  // namespace

Outcome<std::unique_ptr<SoundWriter>> FfmpegWriter::Create(platform::File& file,
                                                           const OutputPlan& plan) {
    std::unique_ptr<FfmpegWriter> writer(new FfmpegWriter);
    writer->output_ = AvOutput::Create(file, MuxerName(plan.File));
    writer->frame_.reset(av_frame_alloc());
    writer->packet_.reset(av_packet_alloc());
    if (!writer->output_ || !writer->frame_ || !writer->packet_) return SoundError::Memory;
    OutputFormat format = plan.Format;
    const bool headerApart = (writer->output_->Context().oformat->flags & AVFMT_GLOBALHEADER) != 0;
    writer->encoder_ = OpenNearestEncoder(format, headerApart);
    if (!writer->encoder_) return SoundError::FormatNotSupported;
    if (!writer->Begin(format))
        return writer->output_->Complete() ? SoundError::FormatNotSupported
                                           : SoundError::FileAccess;
    return std::unique_ptr<SoundWriter>(std::move(writer));
}

bool FfmpegWriter::Begin(const OutputFormat& format) {
    description_ = {format.Format, 16, false, TextOf(format)};
    AVFormatContext& context = output_->Context();
    stream_ = avformat_new_stream(&context, nullptr);
    if (!stream_ || avcodec_parameters_from_context(stream_->codecpar, encoder_.get()) < 0)
        return false;
    stream_->time_base = encoder_->time_base;
    // The header counts bytes a second, from which readers get the bits of a sample: not too few.
    if (encoder_->codec_id == AV_CODEC_ID_ADPCM_G726)
        stream_->codecpar->bit_rate = (encoder_->bit_rate + 7) / 8 * 8;
    if (avformat_write_header(&context, nullptr) < 0) return false;

    frame_->format = encoder_->sample_fmt;
    frame_->sample_rate = encoder_->sample_rate;
    frame_->nb_samples = static_cast<int>(BlockValues()) / format.Format.Channels;
    return av_channel_layout_copy(&frame_->ch_layout, &encoder_->ch_layout) >= 0 &&
           av_frame_get_buffer(frame_.get(), 0) >= 0;
}

// Whole frames of the coding; of any length where it has none, then what is quick.
std::size_t FfmpegWriter::BlockValues() const {
    constexpr int kFreeFrames = 4096;
    const int frames = encoder_->frame_size > 0 ? encoder_->frame_size : kFreeFrames;
    return static_cast<std::size_t>(frames) *
           static_cast<std::size_t>(description_.Carried.Channels);
}

bool FfmpegWriter::Write(std::span<const std::int16_t> samples) {
    const std::size_t whole = BlockValues();
    while (!samples.empty()) {
        if (block_.empty() && samples.size() >= whole) {
            if (!EncodeBlock(samples.first(whole))) return false;
            samples = samples.subspan(whole);
            continue;
        }
        const std::size_t count = std::min(whole - block_.size(), samples.size());
        block_.insert(block_.end(), samples.begin(),
                      samples.begin() + static_cast<std::ptrdiff_t>(count));
        samples = samples.subspan(count);
        if (block_.size() < whole) continue;
        if (!EncodeBlock(block_)) return false;
        block_.clear();
    }
    return true;
}

bool FfmpegWriter::EncodeBlock(std::span<const std::int16_t> samples) {
    // The encoder may still hold what it was given last.
    if (av_frame_make_writable(frame_.get()) < 0) return false;
    const auto frames = samples.size() / static_cast<std::size_t>(description_.Carried.Channels);
    frame_->nb_samples = static_cast<int>(frames);
    frame_->pts = written_;
    written_ += static_cast<std::int64_t>(frames);
    Fill(samples);
    return Encode(frame_.get());
}

void FfmpegWriter::Fill(std::span<const std::int16_t> samples) {
    if (encoder_->sample_fmt == AV_SAMPLE_FMT_S16) {
        std::ranges::copy(samples, reinterpret_cast<std::int16_t*>(frame_->data[0]));
        return;
    }
    const auto channels = static_cast<std::size_t>(description_.Carried.Channels);
    for (std::size_t channel = 0; channel < channels; ++channel) {
        auto* plane = reinterpret_cast<float*>(frame_->extended_data[channel]);
        for (std::size_t i = channel; i < samples.size(); i += channels)
            *plane++ = static_cast<float>(samples[i]) / 32768.0f;
    }
}

bool FfmpegWriter::Encode(AVFrame* frame) {
    if (avcodec_send_frame(encoder_.get(), frame) < 0) return false;
    int result = 0;
    while ((result = avcodec_receive_packet(encoder_.get(), packet_.get())) >= 0) {
        av_packet_rescale_ts(packet_.get(), encoder_->time_base, stream_->time_base);
        packet_->stream_index = 0;
        if (av_write_frame(&output_->Context(), packet_.get()) < 0) return false;
        av_packet_unref(packet_.get());
    }
    return result == AVERROR(EAGAIN) || result == AVERROR_EOF;
}

bool FfmpegWriter::Finish() {
    if (encoder_->codec_id == AV_CODEC_ID_WMAV2) {
        // Its decoders deliver a frame when they have the next one.
        block_.resize(BlockValues());
        if (!EncodeBlock(block_)) return false;
        std::ranges::fill(block_, std::int16_t{0});
    }
    if (!block_.empty() && !EncodeBlock(block_)) return false;
    return Encode(nullptr) && av_write_trailer(&output_->Context()) >= 0 && output_->Complete();
}

}  // namespace mavrin2::dusoro
