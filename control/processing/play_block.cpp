#include "control/processing/play_block.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "control/editor/wave_stream.h"
#include "control/signal/pcm_convert.h"

namespace mavrin2::processing {
namespace {

using signal::Bytes;

constexpr std::int32_t kBits = 16;

// The rate at which samples have to be made so that the device, which keeps the document's rate,
// plays them in the changed time.
std::int32_t RateAt(const PlaySpeed& speed, std::int32_t frequency) {
    const double rate = static_cast<double>(frequency) * speed.Percent() / 100;
    return static_cast<std::int32_t>(
        std::clamp(rate, 1.0, static_cast<double>(std::numeric_limits<std::int32_t>::max())));
}

SamplesBlock Converted(std::span<const std::byte> sound, const editor::DocumentFormat& format,
                       std::int32_t rate) {
    signal::CPcmConvert convert;
    convert.SetInput(format.Frequency, format.Channels, kBits);
    convert.SetOutput(rate, format.Channels, kBits);
    convert.Init();
    SamplesBlock block(convert.OutputCapacityFor(sound.size()) / 2 + 1);
    std::size_t produced = 0;
    {
        const automation::ArrayView<std::int16_t> view(block.Get());
        produced = convert.Convert(sound, std::as_writable_bytes(view.Elements())).Produced;
    }
    block.Resize(produced / 2);
    return block;
}

}  // namespace

float PlaySpeed::Percent() const {
    constexpr float kLeast = 10;
    constexpr float kMost = 1000;
    return std::isnan(PlaySpeedPercent) ? 100 : std::clamp(PlaySpeedPercent, kLeast, kMost);
}

PlayBlock ReadPlayBlock(platform::FileSystem& files, const std::filesystem::path& workFile,
                        const editor::DocumentFormat& format, Bytes position, Bytes length,
                        const PlaySpeed& speed) {
    editor::WaveStream source(files);
    if (!source.Open(workFile, editor::WaveStream::Mode::Read)) return {};
    source.Seek(position.Count());
    const auto size = static_cast<std::size_t>(length.Count());
    PlayBlock block;
    const auto readInto = [&](std::span<std::byte> target) {
        // Half a frame would exchange the channels.
        const std::int64_t read = source.Read(target).value_or(0);
        block.Taken = Bytes(read / format.FrameSize().Count() * format.FrameSize().Count());
        return static_cast<std::size_t>(block.Taken.Count());
    };
    if (speed.Changes()) {
        std::vector<std::byte> sound(size);
        sound.resize(readInto(sound));
        if (!sound.empty())
            block.Samples = Converted(sound, format, RateAt(speed, format.Frequency));
        return block;
    }
    block.Samples = SamplesBlock(size / 2);
    std::size_t read = 0;
    {
        const automation::ArrayView<std::int16_t> view(block.Samples.Get());
        read = readInto(std::as_writable_bytes(view.Elements()));
    }
    if (read < size) block.Samples.Resize(read / 2);
    return block;
}

}  // namespace mavrin2::processing
