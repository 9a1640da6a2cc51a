#include "companions/dusoro/backends/ffmpeg/mpeg_length.h"

#include <algorithm>

#include "companions/dusoro/backends/ffmpeg/mpeg_stream.h"

namespace mavrin2::dusoro {
namespace {

using formats::MpegHeader;

// The samples that every decoder of layer III is late, beside what the encoder was.
constexpr std::int64_t kDecoderDelay = 529;

std::int64_t CountSamples(FileWindow& window, std::int64_t offset, std::uint32_t kind) {
    std::int64_t samples = 0;
    while (offset >= 0) {
        const auto header = MpegHeaderAt(window, offset);
        if (header && header->Kind == kind) {
            if (offset + header->Size > window.End()) break;
            samples += header->Frames;
            offset += header->Size;
        } else {
            offset = FindMpegFrame(window, offset + 1, window.End());
        }
    }
    return samples;
}

}  // namespace

bool BeginsAsMpeg(platform::File& file) {
    FileWindow window(file);
    const std::int64_t behind = EndOfId3(window);
    return FindMpegFrame(window, behind, behind + 1) >= 0;
}

std::optional<MpegLength> MeasureMpeg(platform::File& file) {
    FileWindow window(file);
    const std::int64_t start = FirstMpegFrame(window);
    if (start < 0) return std::nullopt;
    const MpegHeader header = *MpegHeaderAt(window, start);

    const std::optional<MpegTag> tag = MpegTagAt(window, start, header);
    if (!tag) return MpegLength{CountSamples(window, start, header.Kind), false};
    const std::int64_t dropped = tag->Delay >= 0 ? tag->Delay + kDecoderDelay : 0;
    if (!tag->Fits(window.End() - start)) {
        const std::int64_t all = CountSamples(window, start + header.Size, header.Kind);
        return MpegLength{std::max<std::int64_t>(0, all - dropped), false};
    }
    const std::int64_t all = tag->MpegFrames * header.Frames;
    if (tag->Delay < 0) return MpegLength{all, false};
    const std::int64_t padding = std::max<std::int64_t>(0, tag->Padding - kDecoderDelay);
    return MpegLength{std::max<std::int64_t>(0, all - dropped - padding), true};
}

}  // namespace mavrin2::dusoro
