#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>

#include "companions/dusoro/backends/ffmpeg/av_input.h"
#include "companions/dusoro/backends/ffmpeg/flac_checksum.h"
#include "companions/dusoro/backends/ffmpeg/frame_renderer.h"
#include "companions/dusoro/sound/backend.h"

namespace mavrin2::dusoro {

class FfmpegReader final : public SoundReader {
public:
    static Outcome<std::unique_ptr<SoundReader>> Open(std::shared_ptr<platform::File> file,
                                                      const ReadingHint& hint);

    const SourceDescription& Description() const override { return description_; }
    std::size_t Read(std::span<std::int16_t> samples) override;
    SourceFaults Faults() const override {
        SourceFaults faults = faults_;
        if (renderer_) faults.LimitedSamples = renderer_->Limited();
        return faults;
    }

private:
    FfmpegReader() = default;
    SoundError OpenDecoder();
    SoundError Start();
    void Measure(std::int64_t bytes);
    bool NextFrame();
    bool FeedDecoder();
    void SendPacket();
    bool TakeFrame();
    void Refuse();
    void CheckEnd();
    bool EndsEarly() const;

    std::unique_ptr<AvInput> input_;
    AVStream* stream_ = nullptr;
    AvCodecContextPtr decoder_;
    AvPacketPtr packet_;
    AvFramePtr frame_;
    std::unique_ptr<FrameRenderer> renderer_;
    SourceDescription description_;
    std::size_t rendered_ = 0;  // sample frames of frame_
    std::int64_t skipped_ = 0;  // sample frames that the decoder drops at the beginning
    std::int64_t left_ = std::numeric_limits<std::int64_t>::max();  // sample frames to deliver
    bool chained_ = false;        // an Ogg file of consecutive streams
    bool endsByLength_ = false;   // what the demuxer says about padding is not passed on
    bool begun_ = false;          // the first packet has been read
    bool draining_ = false;       // the last packet has been read
    bool refused_ = false;        // a packet could not be decoded
    std::int64_t doubtful_ = 0;   // packets refused since the last frame
    std::int64_t delivered_ = 0;  // sample frames
    bool check_ = false;          // whether to find all faults
    bool ended_ = false;          // the end has been checked
    bool partial_ = false;        // the last packet is not whole
    std::optional<FlacChecksum> checksum_;
    SourceFaults faults_;  // damaged: packets refused with sound after them
};

}  // namespace mavrin2::dusoro
