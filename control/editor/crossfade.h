#pragma once

#include "control/editor/block_buffer.h"
#include "control/editor/material.h"
#include "control/editor/services.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// The sound right after the place of a paste, out of which the pasted sound fades in.
class PasteCrossfade {
public:
    explicit PasteCrossfade(const Storage& storage, const DocumentFormat& format);

    // Bytes of the document's format, where it is long enough.
    static Bytes LengthOf(const EditSettings& settings, const DocumentFormat& format);

    // Takes the sound from where the source is. NOERRORS, or why not.
    ErrorConstants Read(WaveStream& source);
    // Fades the first block that is long enough, if the host wants it.
    void Apply(const Material::Block& block);

private:
    const EditSettings& settings_;
    std::size_t channels_;
    std::size_t length_;
    BlockBuffer buffer_;
    std::span<std::byte> old_;
};

}  // namespace mavrin2::editor
