#pragma once

extern "C" {
#include <libavutil/md5.h>
#include <libavutil/mem.h>
}

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "companions/dusoro/backends/ffmpeg/av_handles.h"

namespace mavrin2::dusoro {

// Compares decoded FLAC with the MD5 sum that its encoder has left in the description of the
// stream. FLAC's own files are read elsewhere; this is for FLAC inside other containers.
class FlacChecksum {
public:
    // Nothing for other codings, and where the encoder has left no sum.
    static std::optional<FlacChecksum> Of(const AVCodecParameters& parameters);

    // The next frame of the whole stream.
    void Add(const AVFrame& frame);
    // After the last one.
    bool Differs();

private:
    using Sum = std::array<std::uint8_t, 16>;
    struct Free {
        void operator()(AVMD5* state) const { av_free(state); }
    };

    FlacChecksum() = default;
    template <class Sample>
    void AddAs(const AVFrame& frame, bool planar);

    Sum expected_{};
    int bits_ = 16;
    std::unique_ptr<AVMD5, Free> state_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace mavrin2::dusoro
