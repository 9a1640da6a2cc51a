#include "companions/kestrin/kernels/swept_delay.h"

#include <algorithm>

#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {
namespace {

// What interpolation needs after the place where it reads.
constexpr double kShortest = 2;
constexpr std::int64_t kUnit = std::int64_t{1} << 32;

// Values between `from` and the one before it, on the cubic curve through these two and their
// neighbours (Catmull and Rom); `share` of the way, which moves by `step` from one to the next.
void AddInterpolated(const float* from, float share, float step, std::span<float> sum) {
    for (std::size_t i = 0; i < sum.size(); ++i) {
        const float t = share + step * static_cast<float>(static_cast<std::int32_t>(i));
        const float after = from[i + 1];
        const float here = from[i];
        const float before = from[static_cast<std::ptrdiff_t>(i) - 1];
        const float earlier = from[static_cast<std::ptrdiff_t>(i) - 2];
        const float slope = 0.5F * (before - after);
        const float second = after - 2.5F * here + 2 * before - 0.5F * earlier;
        const float third = 0.5F * (earlier - after) + 1.5F * (here - before);
        sum[i] += here + t * (slope + t * (second + t * third));
    }
}

}  // namespace

SweptDelay::SweptDelay(const Settings& settings, double rate)
    : settings_(settings),
      history_(static_cast<std::size_t>(std::max(kShortest, settings.Delay * 2)) + kPiece + 4) {
    for (int i = 0; i < settings.Voices; ++i) {
        const Sweep swing(settings.SweepFrequency,
                          settings.SweepPhase + 360.0 * i / settings.Voices, rate);
        voices_.push_back({swing, DelayAt(swing, 0), 0, 0});
    }
}

double SweptDelay::DelayAt(const Sweep& swing, double sample) const {
    return std::max(kShortest, settings_.Delay * (1 + settings_.Depth * swing.At(sample)));
}

void SweptDelay::NextPoint() {
    point_ += kPiece;
    left_ = kPiece;
    for (Voice& voice : voices_) {
        const double from = voice.Delay;
        voice.Delay = DelayAt(voice.Swing, point_);
        voice.Place = static_cast<std::int64_t>(from * kUnit);
        voice.Step = static_cast<std::int64_t>((voice.Delay - from) * kUnit / kPiece);
    }
}

std::size_t SweptDelay::Reach() const {
    std::int64_t shortest = voices_.front().Place;
    for (const Voice& voice : voices_)
        shortest = std::min(
            {shortest, voice.Place, voice.Place + voice.Step * static_cast<std::int64_t>(left_)});
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(shortest / kUnit - 1, 1, static_cast<std::int64_t>(left_)));
}

void SweptDelay::Process(std::span<float> block) {
    while (!block.empty()) {
        if (left_ == 0) NextPoint();
        const std::size_t count = std::min(block.size(), Reach());
        ProcessPart(block.first(count));
        left_ -= count;
        block = block.subspan(count);
    }
}

void SweptDelay::AddVoice(Voice& voice, std::span<float> sum) const {
    for (std::size_t done = 0; done < sum.size();) {
        const std::int64_t whole = voice.Place / kUnit;
        const std::int64_t share = voice.Place % kUnit;
        // As far as the delay has the same whole number, the places read are neighbours.
        auto run = static_cast<std::int64_t>(sum.size() - done);
        if (voice.Step > 0) run = std::min(run, (kUnit - 1 - share) / voice.Step + 1);
        if (voice.Step < 0) run = std::min(run, share / -voice.Step + 1);
        AddInterpolated(history_.End() + static_cast<std::int64_t>(done) - whole,
                        static_cast<float>(share) / static_cast<float>(kUnit),
                        static_cast<float>(voice.Step) / static_cast<float>(kUnit),
                        sum.subspan(done, static_cast<std::size_t>(run)));
        voice.Place += voice.Step * run;
        done += static_cast<std::size_t>(run);
    }
}

void SweptDelay::ProcessPart(std::span<float> part) {
    Piece sums{};
    const auto delayed = std::span(sums).first(part.size());
    for (Voice& voice : voices_)
        AddVoice(voice, delayed);

    const float share = 1 / static_cast<float>(voices_.size());
    const float mix = settings_.Mix * share;
    const float level = 1 / (1 + settings_.Mix);
    const float feedback = settings_.Feedback * share;
    Piece entering;
    for (std::size_t i = 0; i < part.size(); ++i) {
        const float value = part[i];
        entering[i] = value + delayed[i] * feedback + kQuietFloor;
        part[i] = (value + delayed[i] * mix) * level;
    }
    history_.Append(std::span(entering).first(part.size()));
}

}  // namespace mavrin2::kestrin
