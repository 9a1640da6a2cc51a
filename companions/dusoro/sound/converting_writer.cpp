#include "companions/dusoro/sound/converting_writer.h"

#include <algorithm>

namespace mavrin2::dusoro {

bool ConvertingWriter::Write(std::span<const std::int16_t> samples) {
    const std::size_t block = converter_->BlockFrames() * static_cast<std::size_t>(given_.Channels);
    while (!samples.empty()) {
        const auto part = samples.first(std::min(block, samples.size()));
        if (!target_->Write(converter_->Push(part))) return false;
        samples = samples.subspan(part.size());
    }
    return true;
}

bool ConvertingWriter::Finish() {
    const bool complete = target_->Write(converter_->Finish());
    return target_->Finish() && complete;
}

}  // namespace mavrin2::dusoro
