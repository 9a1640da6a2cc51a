#include "companions/kestrin/kernels/effect_runner.h"

#include <algorithm>
#include <array>
#include <vector>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kBlock = 2048;
using Block = std::array<float, kBlock>;

// The index inside 0 … count − 1 that `distance` steps from the first sample mean when the way
// turns back at either end.
std::size_t Mirrored(std::size_t distance, std::size_t count) {
    if (count < 2) return 0;
    const std::size_t period = 2 * (count - 1);
    const std::size_t inside = distance % period;
    return inside < count ? inside : period - inside;
}

void Settle(Effect& effect, std::span<const std::int16_t> sound, Progress& progress) {
    Block block;
    for (std::size_t left = effect.LeadIn(); left > 0;) {
        const std::size_t count = std::min(left, kBlock);
        for (std::size_t i = 0; i < count; ++i)
            block[i] =
                static_cast<float>(sound[Mirrored(left - i, sound.size())]) * (1 / kFullScale);
        effect.Process(std::span(block).first(count));
        left -= count;
        progress.Report(0);
    }
}

}  // namespace

void RunEffect(Effect& effect, std::span<std::int16_t> sound, Progress& progress) {
    if (sound.empty()) return;
    Settle(effect, sound, progress);

    // What is read after the end, kept because it will have been overwritten by then.
    const std::size_t latency = effect.Latency();
    const auto kept = sound.last(std::min(sound.size(), latency + 1));
    const std::vector<std::int16_t> tail(kept.rbegin(), kept.rend());

    Block block;
    std::size_t written = 0;
    for (std::size_t read = 0; written < sound.size();) {
        const std::size_t inside =
            read < sound.size() ? std::min(kBlock, sound.size() - read) : std::size_t{0};
        const std::size_t count =
            inside > 0 ? inside : std::min(kBlock, sound.size() + latency - read);
        const auto values = std::span(block).first(count);
        if (inside > 0) {
            ToFloat(sound.subspan(read, count), values);
        } else {
            for (std::size_t i = 0; i < count; ++i)
                values[i] =
                    static_cast<float>(tail[Mirrored(read + i + 1 - sound.size(), tail.size())]) *
                    (1 / kFullScale);
        }
        effect.Process(values);
        // Output before the first sample is dropped.
        const std::size_t dropped = std::min(count, read < latency ? latency - read : 0);
        progress.AddLimited(
            ToSamples(values.subspan(dropped), sound.subspan(written, count - dropped)));
        written += count - dropped;
        read += count;
        progress.Report(FractionOf(read, sound.size() + latency));
    }
}

}  // namespace mavrin2::kestrin
