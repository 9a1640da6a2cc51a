#include "companions/dusoro/sound/converting_reader.h"

#include <algorithm>

namespace mavrin2::dusoro {

ConvertingReader::ConvertingReader(std::unique_ptr<SoundReader> source,
                                   std::unique_ptr<FormatConverter> converter, PcmFormat wanted)
    : source_(std::move(source)),
      converter_(std::move(converter)),
      description_(source_->Description()) {
    const PcmFormat given = description_.Delivered;
    description_.Frames = FramesAtRate(description_.Frames, given.Rate, wanted.Rate);
    description_.Delivered = wanted;
    block_.resize(converter_->BlockFrames() * static_cast<std::size_t>(given.Channels));
}

std::size_t ConvertingReader::Read(std::span<std::int16_t> samples) {
    const auto channels = static_cast<std::size_t>(description_.Delivered.Channels);
    std::span<std::int16_t> open = samples.first(samples.size() / channels * channels);
    const std::size_t wanted = open.size();
    while (!open.empty() && (!converted_.empty() || Refill())) {
        const std::size_t count = std::min(open.size(), converted_.size());
        std::copy_n(converted_.begin(), count, open.begin());
        converted_ = converted_.subspan(count);
        open = open.subspan(count);
    }
    return (wanted - open.size()) / channels;
}

bool ConvertingReader::Refill() {
    while (converted_.empty() && !ended_) {
        const std::size_t frames = source_->Read(block_);
        const auto channels = static_cast<std::size_t>(source_->Description().Delivered.Channels);
        if (frames > 0) {
            converted_ = converter_->Push(std::span(block_).first(frames * channels));
        } else {
            ended_ = true;
            converted_ = converter_->Finish();
        }
    }
    return !converted_.empty();
}

}  // namespace mavrin2::dusoro
