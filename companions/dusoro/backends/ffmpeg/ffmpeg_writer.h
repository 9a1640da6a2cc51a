#pragma once

#include <memory>
#include <vector>

#include "companions/dusoro/backends/ffmpeg/av_output.h"
#include "companions/dusoro/sound/backend.h"

namespace mavrin2::dusoro {

class FfmpegWriter final : public SoundWriter {
public:
    static Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                        const OutputPlan& plan);

    const OutputDescription& Description() const override { return description_; }
    bool Write(std::span<const std::int16_t> samples) override;
    bool Finish() override;

private:
    FfmpegWriter() = default;
    bool Begin(const OutputFormat& format);
    // Encodes a frame, null at the end, and writes what comes out.
    bool Encode(AVFrame* frame);
    bool EncodeBlock(std::span<const std::int16_t> samples);
    void Fill(std::span<const std::int16_t> samples);
    std::size_t BlockValues() const;

    std::unique_ptr<AvOutput> output_;
    AvCodecContextPtr encoder_;
    AvFramePtr frame_;
    AvPacketPtr packet_;
    AVStream* stream_ = nullptr;
    OutputDescription description_;
    std::vector<std::int16_t> block_;  // what does not fill a frame yet
    std::int64_t written_ = 0;         // sample frames
};

}  // namespace mavrin2::dusoro
