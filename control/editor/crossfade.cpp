#include "control/editor/crossfade.h"

#include <algorithm>

#include "control/editor/samples.h"
#include "control/signal/mixing.h"
#include "control/signal/mul_div.h"

namespace mavrin2::editor {

PasteCrossfade::PasteCrossfade(const Storage& storage, const DocumentFormat& format)
    : settings_(storage.Settings),
      channels_(static_cast<std::size_t>(format.Channels)),
      length_(static_cast<std::size_t>(LengthOf(storage.Settings, format).Count())),
      buffer_(storage.Memory, std::max(length_, std::size_t{1})) {}

Bytes PasteCrossfade::LengthOf(const EditSettings& settings, const DocumentFormat& format) {
    const std::int32_t frames = signal::MulDiv(format.Frequency, settings.SmoothTime, 1000);
    return Bytes(std::max<std::int64_t>(frames, 0) * format.FrameSize().Count());
}

ErrorConstants PasteCrossfade::Read(WaveStream& source) {
    if (!buffer_.Take()) return ErrorConstants::MEMORY;
    const auto place = buffer_.PieceFor(0, length_);
    const auto read = source.ReadWhole(place);
    if (!read) return ErrorConstants::FILEACCESS;
    old_ = place.first(*read);
    return ErrorConstants::NOERRORS;
}

void PasteCrossfade::Apply(const Material::Block& block) {
    // Bytes are compared with values here, so a block of half the crossfade's length is enough.
    const std::size_t values = old_.size() / 2;
    if (values == 0 || !settings_.SmoothEnabled || block.Consumed < values) return;
    signal::Crossfade(AsSamples(block.Sound), AsSamples(old_), channels_);
    old_ = {};
}

}  // namespace mavrin2::editor
