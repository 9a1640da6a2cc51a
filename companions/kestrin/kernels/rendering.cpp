#include "companions/kestrin/kernels/rendering.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kBlock = 4096;

// Puts a source of `length` samples through a rate converter. `read` fills a block with the next of
// them.
void Convert(std::size_t length, const std::function<void(std::span<float>)>& read,
             std::span<std::int16_t> to, const Libraries& libraries, Progress& progress) {
    if (to.empty()) return;
    const auto converter =
        libraries.MakeRateConverter(static_cast<double>(to.size()) / static_cast<double>(length));
    std::array<float, kBlock> in;
    std::array<float, kBlock> out;
    std::span<const float> waiting;
    std::size_t left = length;
    std::size_t written = 0;
    while (written < to.size()) {
        if (waiting.empty() && left > 0) {
            const auto block = std::span(in).first(std::min(left, kBlock));
            read(block);
            left -= block.size();
            waiting = block;
        }
        const auto moved = converter->Process(waiting, out);
        waiting = waiting.subspan(moved.Consumed);
        const std::size_t count = std::min(moved.Delivered, to.size() - written);
        progress.AddLimited(ToSamples(std::span(out).first(count), to.subspan(written, count)));
        written += count;
        progress.Report(FractionOf(written, to.size()));
        if (moved.Consumed == 0 && moved.Delivered == 0 && left == 0) break;
    }
    // The last sample is repeated where rounding has cost one.
    const std::int16_t last = written > 0 ? to[written - 1] : std::int16_t{0};
    std::ranges::fill(to.subspan(written), last);
}

}  // namespace

void RenderResampled(std::span<const std::int16_t> from, std::span<std::int16_t> to,
                     const Libraries& libraries, Progress& progress) {
    std::size_t at = 0;
    Convert(
        from.size(),
        [&](std::span<float> block) {
            ToFloat(from.subspan(at, block.size()), block);
            at += block.size();
        },
        to, libraries, progress);
}

void RenderStretched(TimeStretcher& stretcher, std::span<std::int16_t> to, Progress& progress) {
    std::array<float, kBlock> block;
    for (std::size_t done = 0; done < to.size();) {
        const std::size_t count = std::min(kBlock, to.size() - done);
        stretcher.Read(std::span(block).first(count));
        progress.AddLimited(ToSamples(std::span(block).first(count), to.subspan(done, count)));
        done += count;
        progress.Report(FractionOf(done, to.size()));
    }
}

void RenderStretchedAndResampled(TimeStretcher& stretcher, std::size_t stretched,
                                 std::span<std::int16_t> to, const Libraries& libraries,
                                 Progress& progress) {
    Convert(
        stretched, [&](std::span<float> block) { stretcher.Read(block); }, to, libraries, progress);
}

}  // namespace mavrin2::kestrin
