#pragma once

#include <optional>
#include <vector>

#include "companions/dusoro/backends/sndfile/sndfile_io.h"
#include "companions/dusoro/sound/backend.h"

namespace mavrin2::dusoro {

class SndfileWriter final : public SoundWriter {
public:
    static Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                        const OutputPlan& plan);

    const OutputDescription& Description() const override { return description_; }
    bool Write(std::span<const std::int16_t> samples) override;
    bool Finish() override;

private:
    SndfileWriter(platform::File& file, const OutputPlan& plan);
    bool Append(std::span<const std::int16_t> samples);
    bool AppendAsBytes(std::span<const std::int16_t> samples);
    bool AppendInPairs(std::span<const std::int16_t> samples);

    bool StoreFrameCount();

    platform::File& file_;
    OutputPlan plan_;
    std::unique_ptr<platform::File> beheaded_;
    SndfileStream stream_;
    SndfileHandle handle_;
    OutputDescription description_;
    std::int64_t bytesLeft_;
    std::int64_t frames_ = 0;
    std::vector<std::int16_t> block_;
    std::optional<std::int16_t> held_;  // half a byte of VOX
};

}  // namespace mavrin2::dusoro
