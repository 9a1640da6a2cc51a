#pragma once

#include <FLAC/stream_decoder.h>

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "companions/dusoro/sound/backend.h"
#include "companions/dusoro/sound/down_mix.h"

namespace mavrin2::dusoro {

class FlacReader final : public SoundReader {
public:
    static Outcome<std::unique_ptr<SoundReader>> Open(std::shared_ptr<platform::File> file,
                                                      bool check);

    const SourceDescription& Description() const override { return description_; }
    std::size_t Read(std::span<std::int16_t> samples) override;
    SourceFaults Faults() const override { return faults_; }

private:
    struct Delete {
        void operator()(FLAC__StreamDecoder* decoder) const {
            FLAC__stream_decoder_delete(decoder);
        }
    };

    FlacReader() = default;
    bool Start();
    void Describe(std::int64_t fileBytes);
    bool DecodeFrame();
    void Take(const FLAC__Frame& frame, const FLAC__int32* const* channels);
    void Render(const FLAC__FrameHeader& header, const FLAC__int32* const* channels,
                std::size_t first, std::size_t count, std::int16_t* out);
    void Mix(const FLAC__FrameHeader& header, const FLAC__int32* const* channels, std::size_t first,
             std::size_t count, std::int16_t* out);
    std::size_t OutChannels() const {
        return static_cast<std::size_t>(description_.Delivered.Channels);
    }

    static FLAC__StreamDecoderReadStatus OnRead(const FLAC__StreamDecoder*, FLAC__byte* target,
                                                std::size_t* count, void* self);
    static FLAC__StreamDecoderWriteStatus OnWrite(const FLAC__StreamDecoder*,
                                                  const FLAC__Frame* frame,
                                                  const FLAC__int32* const channels[], void* self);
    static void OnMetadata(const FLAC__StreamDecoder*, const FLAC__StreamMetadata* metadata,
                           void* self);
    static void OnError(const FLAC__StreamDecoder*, FLAC__StreamDecoderErrorStatus, void* self) {
        ++static_cast<FlacReader*>(self)->doubtful_;
    }

    std::shared_ptr<platform::File> file_;
    std::int64_t position_ = 0;
    std::unique_ptr<FLAC__StreamDecoder, Delete> decoder_;
    std::optional<FLAC__StreamMetadata_StreamInfo> info_;
    SourceDescription description_;
    std::optional<DownMix> downMix_;
    SourceFaults faults_;
    bool ended_ = false;
    std::int64_t doubtful_ = 0;  // errors since the last frame
    std::vector<float> gathered_;

    // A decoded frame fills what is left of the caller's buffer; the rest waits.
    std::span<std::int16_t> room_;
    std::vector<std::int16_t> rest_;
    std::size_t restTaken_ = 0;
};

}  // namespace mavrin2::dusoro
