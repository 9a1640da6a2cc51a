#pragma once

#include <memory>

#include "companions/backends/backends.h"
#include "companions/dusoro/sound/backend.h"
#include "companions/dusoro/sound/reading_plan.h"

namespace mavrin2::dusoro {

// The sound libraries, by what they are wanted for.
class SoundBackends {
public:
    explicit SoundBackends(std::shared_ptr<const backends::Backends> backends)
        : backends_(std::move(backends)) {}

    // Null when the backend or its library is missing, which makes its formats unsupported and
    // nothing else.
    const Decoder* DecoderFor(DecoderKind kind) const;
    const Encoder* EncoderOf(EncoderKind kind) const;
    const ResamplerMaker* Soxr() const;

private:
    std::shared_ptr<const backends::Backends> backends_;
};

}  // namespace mavrin2::dusoro
