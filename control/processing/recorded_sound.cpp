#include "control/processing/recorded_sound.h"

#include "control/editor/wave_stream.h"
#include "control/signal/mixing.h"

namespace mavrin2::processing {

using editor::WaveStream;
using signal::Bytes;

void RecordedSound::Begin(const std::filesystem::path& workFile, Bytes position, bool mix) {
    workFile_ = workFile;
    position_ = position;
    mix_ = mix;
    failed_ = false;
}

bool RecordedSound::Store(std::span<std::int16_t> block, Bytes& total) {
    failed_ = failed_ || !Write(block, total);
    return !failed_;
}

bool RecordedSound::Write(std::span<std::int16_t> block, Bytes& total) {
    const auto bytes = std::as_bytes(block);
    const Bytes end = position_ + Bytes(static_cast<std::int64_t>(bytes.size()));
    if (end > Bytes(WaveStream::LargestLength)) return false;
    WaveStream stream(files_);
    if (!stream.Open(workFile_, WaveStream::Mode::Update)) return false;
    if (mix_ && position_ < total) {
        existing_.resize(block.size());
        stream.Seek(position_.Count());
        const auto read = stream.ReadWhole(std::as_writable_bytes(std::span(existing_)));
        if (!read) return false;
        const std::size_t both = *read / sizeof(std::int16_t);
        signal::MixLimited(block.first(both), std::span(existing_).first(both), 1, 1);
    }
    stream.Seek(position_.Count());
    if (!stream.Write(bytes)) {
        stream.CutTo(static_cast<std::uint32_t>(total.Count()));
        return false;
    }
    const Bytes length(stream.Length());
    if (!stream.Close()) return false;
    total = length;
    position_ = end;
    return true;
}

}  // namespace mavrin2::processing
