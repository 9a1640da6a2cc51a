#include "companions/dusoro/backends/ffmpeg/stream_length.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "companions/dusoro/backends/ffmpeg/mpeg_length.h"

namespace mavrin2::dusoro {
namespace {

std::int64_t InFrames(std::int64_t duration, AVRational timeBase, std::int32_t rate) {
    return av_rescale_q(duration, timeBase, {1, rate});
}

// Walks through the packets of a second opening of the file, without decoding them.
StreamLength CountPackets(const AvInput& input, const AVStream& stream, std::int32_t rate) {
    const auto again = input.OpenAgain();
    const AvPacketPtr packet(av_packet_alloc());
    if (!again || !packet) return {};
    std::int64_t duration = 0;
    while (av_read_frame(&again->Context(), packet.get()) >= 0) {
        // Durations from a damaged file may be anything.
        if (packet->stream_index == stream.index && packet->duration < INT32_MAX)
            duration += std::max<std::int64_t>(0, packet->duration);
        av_packet_unref(packet.get());
    }
    return {InFrames(duration, stream.time_base, rate), false};
}

StreamLength Estimate(const AvInput& input, const AVStream& stream, std::int32_t rate) {
    AVFormatContext& context = input.Context();
    if (context.duration_estimation_method == AVFMT_DURATION_FROM_BITRATE)
        return CountPackets(input, stream, rate);
    if (stream.duration > 0) return {InFrames(stream.duration, stream.time_base, rate), false};
    if (context.duration > 0) return {InFrames(context.duration, AV_TIME_BASE_Q, rate), false};
    return CountPackets(input, stream, rate);
}

StreamLength MeasureOgg(const AvInput& input, const AVStream& stream, std::int32_t rate) {
    if (stream.duration == AV_NOPTS_VALUE) return CountPackets(input, stream, rate);
    const std::int64_t preSkip = stream.codecpar->initial_padding;
    return {std::max<std::int64_t>(0, InFrames(stream.duration, stream.time_base, rate) - preSkip),
            true};
}

// The count that one family of encoders writes into a comment, in hexadecimal: nothing, delay,
// padding, length.
std::optional<std::int64_t> LengthInComment(const AVFormatContext& context) {
    const AVDictionaryEntry* entry = av_dict_get(context.metadata, "iTunSMPB", nullptr, 0);
    std::uint64_t length = 0;
    if (!entry || std::sscanf(entry->value, "%*x %*x %*x %" SCNx64, &length) != 1 || length == 0 ||
        length > INT64_MAX)
        return std::nullopt;
    return static_cast<std::int64_t>(length);
}

// Where an edit list says what to leave out, it counts in steps of the whole film's clock, often
// thousandths of a second. The media's own duration is exact: it is taken when it says the same.
StreamLength MeasureMp4(const AvInput& input, const AVStream& stream, std::int32_t rate,
                        std::int64_t skipped) {
    if (stream.duration == AV_NOPTS_VALUE) return Estimate(input, stream, rate);
    const std::int64_t edited = InFrames(stream.duration, stream.time_base, rate);
    const auto whole = input.OpenAgain("advanced_editlist");
    const auto index = static_cast<unsigned>(stream.index);
    if (!whole || index >= whole->Context().nb_streams) return {edited, true};
    const AVStream& media = *whole->Context().streams[index];
    const std::int64_t all = InFrames(media.duration, media.time_base, rate);
    if (const auto told = LengthInComment(input.Context()); told && *told + skipped <= all)
        return {*told, true};
    const std::int64_t tolerance = rate / 500;
    const bool same = std::abs(all - skipped - edited) <= tolerance;
    return {same ? all - skipped : edited, true};
}

}  // namespace

StreamLength MeasureStream(const AvInput& input, const AVStream& stream, std::int32_t rate,
                           std::int64_t skipped, bool chained) {
    if (chained) return CountPackets(input, stream, rate);
    if (input.IsDemuxer("mp3")) {
        if (const auto found = MeasureMpeg(input.File())) return {found->Frames, found->Exact};
    } else if (input.IsDemuxer("ogg")) {
        return MeasureOgg(input, stream, rate);
    } else if (input.IsDemuxer("mp4") && skipped > 0) {
        return MeasureMp4(input, stream, rate, skipped);
    }
    return Estimate(input, stream, rate);
}

}  // namespace mavrin2::dusoro
