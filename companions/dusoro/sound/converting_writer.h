#pragma once

#include <memory>

#include "companions/dusoro/sound/format_converter.h"
#include "companions/dusoro/sound/sound_writer.h"

namespace mavrin2::dusoro {

// Takes samples in the caller's format for a writer that carries another one.
class ConvertingWriter final : public SoundWriter {
public:
    // `converter` makes of `given` what `target` carries; nothing has been written yet.
    ConvertingWriter(std::unique_ptr<SoundWriter> target,
                     std::unique_ptr<FormatConverter> converter, PcmFormat given)
        : target_(std::move(target)), converter_(std::move(converter)), given_(given) {}

    const OutputDescription& Description() const override { return target_->Description(); }
    bool Write(std::span<const std::int16_t> samples) override;
    bool Finish() override;
    std::int64_t LimitedByConversion() const override { return converter_->LimitedSamples(); }

private:
    std::unique_ptr<SoundWriter> target_;
    std::unique_ptr<FormatConverter> converter_;
    PcmFormat given_;
};

}  // namespace mavrin2::dusoro
