#include "companions/dusoro/backends/ffmpeg/frame_renderer.h"

#include "companions/dusoro/sound/sample_blocks.h"

namespace mavrin2::dusoro {
namespace {

Speaker SpeakerOf(AVChannel channel) {
    switch (channel) {
        case AV_CHAN_FRONT_LEFT:
        case AV_CHAN_FRONT_LEFT_OF_CENTER:
        case AV_CHAN_STEREO_LEFT:
        case AV_CHAN_WIDE_LEFT:
            return Speaker::FrontLeft;
        case AV_CHAN_FRONT_RIGHT:
        case AV_CHAN_FRONT_RIGHT_OF_CENTER:
        case AV_CHAN_STEREO_RIGHT:
        case AV_CHAN_WIDE_RIGHT:
            return Speaker::FrontRight;
        case AV_CHAN_FRONT_CENTER:
            return Speaker::FrontCentre;
        case AV_CHAN_LOW_FREQUENCY:
        case AV_CHAN_LOW_FREQUENCY_2:
            return Speaker::LowFrequency;
        case AV_CHAN_BACK_LEFT:
        case AV_CHAN_SIDE_LEFT:
        case AV_CHAN_TOP_FRONT_LEFT:
        case AV_CHAN_TOP_BACK_LEFT:
        case AV_CHAN_SURROUND_DIRECT_LEFT:
            return Speaker::SurroundLeft;
        case AV_CHAN_BACK_RIGHT:
        case AV_CHAN_SIDE_RIGHT:
        case AV_CHAN_TOP_FRONT_RIGHT:
        case AV_CHAN_TOP_BACK_RIGHT:
        case AV_CHAN_SURROUND_DIRECT_RIGHT:
            return Speaker::SurroundRight;
        case AV_CHAN_BACK_CENTER:
        case AV_CHAN_TOP_CENTER:
        case AV_CHAN_TOP_FRONT_CENTER:
        case AV_CHAN_TOP_BACK_CENTER:
            return Speaker::SurroundCentre;
        default:
            return Speaker::Unknown;
    }
}

std::vector<Speaker> SpeakersOf(const AVChannelLayout& layout) {
    const auto count = static_cast<std::size_t>(layout.nb_channels);
    if (layout.order == AV_CHANNEL_ORDER_UNSPEC) return UsualSpeakers(count);
    std::vector<Speaker> speakers;
    for (unsigned i = 0; i < count; ++i)
        speakers.push_back(SpeakerOf(av_channel_layout_channel_from_index(&layout, i)));
    return speakers;
}

// One channel of a decoded frame: where its samples are, and how far apart.
template <class Sample>
struct Channel {
    const Sample* First;
    std::size_t Step;

    Channel(const AVFrame& frame, bool planar, std::size_t channel, std::size_t first) {
        const auto channels = static_cast<std::size_t>(frame.ch_layout.nb_channels);
        Step = planar ? 1 : channels;
        First = planar ? reinterpret_cast<const Sample*>(frame.extended_data[channel]) + first
                       : reinterpret_cast<const Sample*>(frame.extended_data[0]) +
                             first * channels + channel;
    }
    Sample operator[](std::size_t i) const { return First[i * Step]; }
};

}  // namespace

bool FrameRenderer::Render(const AVFrame& frame, std::size_t first, std::size_t count,
                           std::int16_t* out) {
    const auto format = static_cast<AVSampleFormat>(frame.format);
    const bool planar = av_sample_fmt_is_planar(format) != 0;
    switch (av_get_packed_sample_fmt(format)) {
        case AV_SAMPLE_FMT_U8:
            RenderAs<std::uint8_t>(frame, planar, first, count, out);
            return true;
        case AV_SAMPLE_FMT_S16:
            RenderAs<std::int16_t>(frame, planar, first, count, out);
            return true;
        case AV_SAMPLE_FMT_S32:
            RenderAs<std::int32_t>(frame, planar, first, count, out);
            return true;
        case AV_SAMPLE_FMT_S64:
            RenderAs<std::int64_t>(frame, planar, first, count, out);
            return true;
        case AV_SAMPLE_FMT_FLT:
            RenderAs<float>(frame, planar, first, count, out);
            return true;
        case AV_SAMPLE_FMT_DBL:
            RenderAs<double>(frame, planar, first, count, out);
            return true;
        default:
            return false;
    }
}

template <class Sample>
void FrameRenderer::RenderAs(const AVFrame& frame, bool planar, std::size_t first,
                             std::size_t count, std::int16_t* out) {
    const auto own = static_cast<std::int32_t>(frame.ch_layout.nb_channels);
    if (own > 2) return Mix<Sample>(frame, planar, first, count, out);

    const Channel<Sample> left(frame, planar, 0, first);
    const Channel<Sample> right(frame, planar, own == 2 ? 1 : 0, first);
    if (check_) {
        const std::size_t beside = planar ? 1 : static_cast<std::size_t>(own);
        limited_ += static_cast<std::int64_t>(CountBeyondFullScale(left.First, count * beside));
        if (planar && own == 2)
            limited_ += static_cast<std::int64_t>(CountBeyondFullScale(right.First, count));
    }
    if (own == channels_ && (own == 1 || !planar)) {
        ConvertSamples(left.First, out, count * static_cast<std::size_t>(own));
    } else if (own == 2 && channels_ == 2) {
        InterleaveStereo(left.First, right.First, out, count);
    } else if (channels_ == 2) {  // a stream may change its channels on the way
        for (std::size_t i = 0; i < count; ++i)
            out[2 * i] = out[2 * i + 1] = ToSample(left[i]);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            out[i] = MeanOf(ToSample(left[i]), ToSample(right[i]));
    }
}

template <class Sample>
void FrameRenderer::Mix(const AVFrame& frame, bool planar, std::size_t first, std::size_t count,
                        std::int16_t* out) {
    const DownMix& downMix = DownMixFor(frame);
    const std::size_t channels = downMix.Channels();
    gathered_.resize(count * channels);
    for (std::size_t c = 0; c < channels; ++c) {
        const Channel<Sample> channel(frame, planar, c, first);
        for (std::size_t i = 0; i < count; ++i)
            gathered_[i * channels + c] = ToFloat(channel[i]);
    }
    if (channels_ == 2) {
        limited_ += static_cast<std::int64_t>(downMix.Apply(gathered_, out));
        return;
    }
    mixed_.resize(count * 2);
    limited_ += static_cast<std::int64_t>(downMix.Apply(gathered_, mixed_.data()));
    for (std::size_t i = 0; i < count; ++i)
        out[i] = MeanOf(mixed_[2 * i], mixed_[2 * i + 1]);
}

const DownMix& FrameRenderer::DownMixFor(const AVFrame& frame) {
    if (!downMix_ || av_channel_layout_compare(&layout_, &frame.ch_layout) != 0) {
        downMix_.emplace(SpeakersOf(frame.ch_layout));
        av_channel_layout_copy(&layout_, &frame.ch_layout);
    }
    return *downMix_;
}

}  // namespace mavrin2::dusoro
