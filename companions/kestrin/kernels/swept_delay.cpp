#include "companions/kestrin/kernels/swept_delay.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {
namespace {

// Between points so near each other the swing is taken as a straight line.
constexpr std::size_t kPiece = 64;
// What interpolation needs after the place where it reads.
constexpr double kShortest = 2;
// Fractions of a sample, so that a place is one integer and moves by one addition.
constexpr double kUnit = 4294967296.0;

}  // namespace

SweptDelay::SweptDelay(const Settings& settings, double rate)
    : settings_(settings),
      line_(static_cast<std::size_t>(std::max(kShortest, settings.Delay * 2)) + 4) {
    for (int i = 0; i < settings.Voices; ++i) {
        const Sweep swing(settings.SweepFrequency,
                          settings.SweepPhase + 360.0 * i / settings.Voices, rate);
        voices_.push_back({swing, DelayAt(swing, 0)});
    }
}

double SweptDelay::DelayAt(const Sweep& swing, double sample) const {
    return std::max(kShortest, settings_.Delay * (1 + settings_.Depth * swing.At(sample)));
}

void SweptDelay::Process(std::span<float> block) {
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), kPiece);
        ProcessPiece(block.first(count));
        block = block.subspan(count);
    }
}

void SweptDelay::ProcessPiece(std::span<float> piece) {
    struct Place {
        std::int64_t Delay;
        std::int64_t Step;
    };
    constexpr std::size_t kMostVoices = 4;
    std::array<Place, kMostVoices> places{};
    const std::size_t voices = std::min(voices_.size(), kMostVoices);
    position_ += static_cast<double>(piece.size());
    for (std::size_t v = 0; v < voices; ++v) {
        const double from = voices_[v].Delay;
        voices_[v].Delay = DelayAt(voices_[v].Swing, position_);
        places[v] = {static_cast<std::int64_t>(from * kUnit),
                     static_cast<std::int64_t>((voices_[v].Delay - from) * kUnit /
                                               static_cast<double>(piece.size()))};
    }

    const float share = 1 / static_cast<float>(voices);
    const float mix = settings_.Mix;
    const float level = 1 / (1 + mix);
    for (float& value : piece) {
        float delayed = 0;
        for (std::size_t v = 0; v < voices; ++v) {
            const auto whole = static_cast<std::size_t>(places[v].Delay >> 32);
            const auto fraction =
                static_cast<float>(static_cast<std::int32_t>((places[v].Delay & 0xffffffff) >> 1));
            delayed += line_.Read(whole, fraction * (1 / 2147483648.0F));
            places[v].Delay += places[v].Step;
        }
        delayed *= share;
        line_.Write(value + delayed * settings_.Feedback + kQuietFloor);
        value = (value + delayed * mix) * level;
    }
}

}  // namespace mavrin2::kestrin
