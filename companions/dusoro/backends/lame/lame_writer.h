#pragma once

#include <lame/lame.h>

#include <memory>
#include <vector>

#include "companions/dusoro/sound/backend.h"

namespace mavrin2::dusoro {

class LameWriter final : public SoundWriter {
public:
    static Outcome<std::unique_ptr<SoundWriter>> Create(platform::File& file,
                                                        const OutputPlan& plan);

    const OutputDescription& Description() const override { return description_; }
    bool Write(std::span<const std::int16_t> samples) override;
    bool Finish() override;

private:
    struct Close {
        void operator()(lame_global_flags* encoder) const { lame_close(encoder); }
    };
    using Encoder = std::unique_ptr<lame_global_flags, Close>;

    LameWriter(platform::File& file, Encoder encoder, OutputDescription description)
        : file_(file), encoder_(std::move(encoder)), description_(std::move(description)) {}
    bool Encode(std::span<const std::int16_t> samples);
    bool Store(int count);

    platform::File& file_;
    Encoder encoder_;
    OutputDescription description_;
    std::int64_t position_ = 0;
    std::vector<unsigned char> encoded_;
};

}  // namespace mavrin2::dusoro
