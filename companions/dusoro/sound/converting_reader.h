#pragma once

#include <memory>
#include <vector>

#include "companions/dusoro/sound/format_converter.h"
#include "companions/dusoro/sound/sound_reader.h"

namespace mavrin2::dusoro {

// Another reader's sound in the format that the caller wants.
class ConvertingReader final : public SoundReader {
public:
    // `converter` makes `wanted` of what `source` delivers; nothing has been read yet.
    ConvertingReader(std::unique_ptr<SoundReader> source,
                     std::unique_ptr<FormatConverter> converter, PcmFormat wanted);

    const SourceDescription& Description() const override { return description_; }
    std::size_t Read(std::span<std::int16_t> samples) override;
    SourceFaults Faults() const override { return source_->Faults(); }
    std::int64_t LimitedByConversion() const override { return converter_->LimitedSamples(); }

private:
    bool Refill();

    std::unique_ptr<SoundReader> source_;
    std::unique_ptr<FormatConverter> converter_;
    SourceDescription description_;
    std::vector<std::int16_t> block_;
    std::span<const std::int16_t> converted_;  // not delivered yet
    bool ended_ = false;
};

}  // namespace mavrin2::dusoro
