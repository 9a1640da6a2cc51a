#include "companions/backends/backends.h"
#include "companions/dusoro/backends/ffmpeg/av_encoder.h"
#include "companions/dusoro/backends/ffmpeg/ffmpeg_reader.h"
#include "companions/dusoro/backends/ffmpeg/ffmpeg_writer.h"

namespace mavrin2::dusoro {
namespace {

// FFmpeg writes its complaints about damaged files and refused settings to the terminal otherwise.
// The level is the whole process's, and so is FFmpeg.
struct Quiet {
    Quiet() { av_log_set_level(AV_LOG_QUIET); }
};

class FfmpegDecoder final : public Decoder, Quiet {
public:
    Outcome<std::unique_ptr<SoundReader>> Open(const std::shared_ptr<platform::File>& file,
                                               const ReadingHint& hint) const override {
        return FfmpegReader::Open(file, hint);
    }
};

class FfmpegEncoder final : public Encoder, Quiet {
public:
    Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                 const OutputPlan& plan) const override {
        return FfmpegWriter::Create(file, plan);
    }
    bool Has(const OutputFormat& format) const override {
        return OpenEncoder(format, false) != nullptr;
    }
};

}  // namespace
}  // namespace mavrin2::dusoro

MAVRIN2_BACKEND_ENTRY(dusoro, ffmpeg, Decoder) {
    static const mavrin2::dusoro::FfmpegDecoder decoder;
    return &decoder;
}

MAVRIN2_BACKEND_ENTRY(dusoro, ffmpeg, Encoder) {
    static const mavrin2::dusoro::FfmpegEncoder encoder;
    return &encoder;
}
