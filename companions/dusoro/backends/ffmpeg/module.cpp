#include "companions/dusoro/backends/ffmpeg/ffmpeg_reader.h"

namespace mavrin2::dusoro {
namespace {

class FfmpegDecoder final : public Decoder {
public:
    // FFmpeg writes its complaints about damaged files to the terminal otherwise. The level is the
    // whole process's, and so is FFmpeg.
    FfmpegDecoder() { av_log_set_level(AV_LOG_QUIET); }

    Outcome<std::unique_ptr<SoundReader>> Open(const std::shared_ptr<platform::File>& file,
                                               const ReadingHint& hint) const override {
        return FfmpegReader::Open(file, hint);
    }
};

}  // namespace
}  // namespace mavrin2::dusoro

MAVRIN2_DUSORO_EXPORT const mavrin2::dusoro::Decoder* Mavrin2DusoroDecoder() {
    static const mavrin2::dusoro::FfmpegDecoder decoder;
    return &decoder;
}
