#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "companions/dusoro/backends/ffmpeg/av_handles.h"
#include "companions/dusoro/sound/down_mix.h"

namespace mavrin2::dusoro {

// Turns decoded frames, whatever their samples and channels, into 16-bit mono or stereo.
class FrameRenderer {
public:
    // `check`: whether to count samples that are limited.
    FrameRenderer(std::int32_t channels, bool check) : channels_(channels), check_(check) {}
    FrameRenderer(const FrameRenderer&) = delete;
    FrameRenderer& operator=(const FrameRenderer&) = delete;
    ~FrameRenderer() { av_channel_layout_uninit(&layout_); }

    // `count` sample frames of `frame` from `first` on. False for samples of a type that no decoder
    // decodes to.
    bool Render(const AVFrame& frame, std::size_t first, std::size_t count, std::int16_t* out);
    // Samples beyond full scale so far.
    std::int64_t Limited() const { return limited_; }

private:
    template <class Sample>
    void RenderAs(const AVFrame& frame, bool planar, std::size_t first, std::size_t count,
                  std::int16_t* out);
    template <class Sample>
    void Mix(const AVFrame& frame, bool planar, std::size_t first, std::size_t count,
             std::int16_t* out);
    const DownMix& DownMixFor(const AVFrame& frame);

    std::int32_t channels_;
    bool check_;
    std::int64_t limited_ = 0;
    AVChannelLayout layout_{};  // of downMix_
    std::optional<DownMix> downMix_;
    std::vector<float> gathered_;
    std::vector<std::int16_t> mixed_;
};

}  // namespace mavrin2::dusoro
