#include "companions/kestrin/kernels/silence_cutter.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kPiece = 65536;

class Loudness {
public:
    explicit Loudness(double threshold)
        : limit_(static_cast<int>(std::clamp(threshold, 0.0, 32768.0))) {}

    bool Exceeded(std::int16_t value) const { return std::abs(int{value}) > limit_; }
    bool Exceeded(std::span<const std::int16_t> frame) const {
        return std::any_of(frame.begin(), frame.end(), [&](auto x) { return Exceeded(x); });
    }

private:
    int limit_;
};

// Gains from just above 0 to just below 1.
void FadeIn(std::span<std::int16_t> samples, std::size_t channels) {
    const std::size_t frames = samples.size() / channels;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t frame = i / channels;
        const float gain = static_cast<float>(frame + 1) / static_cast<float>(frames + 1);
        samples[i] = ToSample(static_cast<float>(samples[i]) * gain * (1 / kFullScale));
    }
}

void FadeOut(std::span<std::int16_t> samples, std::size_t channels) {
    std::reverse(samples.begin(), samples.end());
    FadeIn(samples, channels);
    std::reverse(samples.begin(), samples.end());
}

void MoveTo(std::span<std::int16_t> sound, std::size_t to, std::size_t from, std::size_t count) {
    if (to != from && count > 0)
        std::memmove(&sound[to], &sound[from], count * sizeof(std::int16_t));
}

// How many samples from the first one on are not loud.
template <class Iterator>
std::size_t CountQuiet(Iterator first, std::size_t size, const Loudness& loudness,
                       Progress& progress) {
    std::size_t count = 0;
    while (count < size) {
        const std::size_t end = std::min(size, count + kPiece);
        while (count < end && !loudness.Exceeded(first[static_cast<std::ptrdiff_t>(count)]))
            ++count;
        progress.Report(FractionOf(count, size));
        if (count < end) break;
    }
    return count;
}

// Of `quiet` samples the number that goes, an even one.
std::size_t RemovedOf(std::size_t quiet, const TrimSettings& settings) {
    const std::size_t kept =
        settings.Fade < quiet / settings.Channels ? settings.Fade * settings.Channels : quiet;
    return (quiet - kept) & ~std::size_t{1};
}

}  // namespace

std::size_t TrimStart(std::span<std::int16_t> sound, const TrimSettings& settings,
                      Progress& progress) {
    std::size_t quiet =
        CountQuiet(sound.begin(), sound.size(), Loudness(settings.Threshold), progress);
    if (quiet == sound.size()) return 0;
    quiet -= quiet % settings.Channels;
    const std::size_t removed = RemovedOf(quiet, settings);
    if (settings.Fade > 0) FadeIn(sound.subspan(removed, quiet - removed), settings.Channels);
    for (std::size_t from = removed; removed > 0 && from < sound.size(); from += kPiece) {
        MoveTo(sound, from - removed, from, std::min(kPiece, sound.size() - from));
        progress.Report(FractionOf(std::max(from, quiet), sound.size()));
    }
    return sound.size() - removed;
}

std::size_t TrimEnd(std::span<std::int16_t> sound, const TrimSettings& settings,
                    Progress& progress) {
    std::size_t quiet =
        CountQuiet(sound.rbegin(), sound.size(), Loudness(settings.Threshold), progress);
    if (quiet == sound.size()) return 0;
    quiet -= quiet % settings.Channels;
    const std::size_t removed = RemovedOf(quiet, settings);
    if (settings.Fade > 0)
        FadeOut(sound.subspan(sound.size() - quiet, quiet - removed), settings.Channels);
    return sound.size() - removed;
}

namespace {

// Walks through a sound and moves what is kept to its beginning.
class SilenceDeletion {
public:
    SilenceDeletion(std::span<std::int16_t> sound, const SilenceSettings& settings)
        : sound_(sound),
          settings_(settings),
          loudness_(settings.Threshold),
          frames_(sound.size() / settings.Channels) {}

    std::size_t Run(Progress& progress) {
        for (std::size_t frame = 0; frame < frames_;) {
            const std::size_t end = EndOfKind(frame);
            if (IsLoud(frame)) {
                if (quietFrom_ < frame) KeepOfQuiet(quietFrom_, frame);
                Keep(frame, end);
                quietFrom_ = end;
                anyLoud_ = true;
            }
            frame = end;
            progress.Report(FractionOf(frame, frames_));
        }
        if (anyLoud_ && quietFrom_ < frames_) KeepOfQuiet(quietFrom_, frames_);
        return written_ * settings_.Channels;
    }

private:
    bool IsLoud(std::size_t frame) const {
        return loudness_.Exceeded(sound_.subspan(frame * settings_.Channels, settings_.Channels));
    }

    // Where the frames that are as loud, or as quiet, as this one end; not too far away.
    std::size_t EndOfKind(std::size_t frame) const {
        const bool loud = IsLoud(frame);
        const std::size_t limit = std::min(frames_, frame + kPiece);
        std::size_t end = frame + 1;
        while (end < limit && IsLoud(end) == loud)
            ++end;
        return end;
    }

    std::span<std::int16_t> Frames(std::size_t from, std::size_t to) const {
        return sound_.subspan(from * settings_.Channels, (to - from) * settings_.Channels);
    }

    void Keep(std::size_t from, std::size_t to) {
        MoveTo(sound_, written_ * settings_.Channels, from * settings_.Channels,
               (to - from) * settings_.Channels);
        written_ += to - from;
    }

    // What follows loud sound is released, what comes before loud sound is attack.
    void KeepOfQuiet(std::size_t from, std::size_t to) {
        const std::size_t release = anyLoud_ ? std::min(settings_.Release, to - from) : 0;
        const std::size_t attack = to < frames_ ? std::min(settings_.Attack, to - from) : 0;
        if (release + attack >= to - from && anyLoud_ && to < frames_) {
            Keep(from, to);  // a short pause stays as it is
            return;
        }
        FadeOut(Frames(from, from + release), settings_.Channels);
        FadeIn(Frames(to - attack, to), settings_.Channels);
        Keep(from, from + release);
        Keep(to - attack, to);
    }

    std::span<std::int16_t> sound_;
    const SilenceSettings& settings_;
    Loudness loudness_;
    std::size_t frames_;
    std::size_t quietFrom_ = 0;
    std::size_t written_ = 0;
    bool anyLoud_ = false;
};

}  // namespace

std::size_t DeleteSilence(std::span<std::int16_t> sound, const SilenceSettings& settings,
                          Progress& progress) {
    return SilenceDeletion(sound, settings).Run(progress);
}

bool LooksInterleaved(std::span<const std::int16_t> sound) {
    const std::size_t count = std::min<std::size_t>(sound.size() & ~std::size_t{1}, 1 << 18);
    if (count < 8 || sound.size() % 2 != 0) return false;
    double inside = 0;   // of a frame
    double between = 0;  // the right sample of one and the left one of the next
    double next = 0;     // a sample and the next but one
    const auto square = [](double x) { return x * x; };
    for (std::size_t i = 0; i + 3 < count; i += 2) {
        inside += square(sound[i + 1] - sound[i]);
        between += square(sound[i + 2] - sound[i + 1]);
        next += square(sound[i + 2] - sound[i]);
    }
    return inside < between / 4 || std::min(inside, between) > next;
}

}  // namespace mavrin2::kestrin
