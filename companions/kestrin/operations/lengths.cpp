// Operations that move samples, or change how many there are.

#include <algorithm>
#include <cmath>

#include "companions/kestrin/kernels/decibels.h"
#include "companions/kestrin/kernels/rendering.h"
#include "companions/kestrin/kernels/sample_conversion.h"
#include "companions/kestrin/kernels/silence_cutter.h"
#include "companions/kestrin/operations/makers.h"

namespace mavrin2::kestrin {
namespace {

// Samples that are moved between two reports.
constexpr std::size_t kPiece = 1 << 16;

std::size_t FramesOf(const Request& request, double milliseconds) {
    return static_cast<std::size_t>(std::llround(milliseconds * request.Rate / 1000));
}

double ThresholdOf(double decibels) {
    return FactorOfDecibels(decibels) * kFullScale;
}

// A trim does not know the number of channels.
TrimSettings TrimSettingsOf(const Request& request) {
    TrimSettings settings;
    settings.Threshold = ThresholdOf(request.Values[0]);
    settings.Channels = LooksInterleaved(request.Sound) ? 2 : 1;
    settings.Fade = FramesOf(request, request.Values[1]);
    return settings;
}

std::size_t ScaledLength(const Request& request) {
    const double length = static_cast<double>(request.Sound.size()) * request.Values[0] / 100;
    return request.Sound.empty() ? 0
                                 : static_cast<std::size_t>(std::max(1LL, std::llround(length)));
}

std::size_t SameLength(const Request& request) {
    return request.Sound.size();
}

void Resample(const Request& request, std::span<std::int16_t> to) {
    RenderResampled(request.Sound, to, request.Library, request.Report);
}

// Stretches the sound to `length`; `render` makes the rest of it.
template <class Render>
void Stretch(const Request& request, std::size_t length, const Render& render) {
    const std::size_t from = request.Sound.size();
    StretchPath guide = request.Pair.TakeGuide(from, length);
    const bool isSecond = !guide.empty();
    TimeStretcher stretcher(request.Sound, length, request.Rate, std::move(guide), request.Library);
    render(stretcher);
    if (!isSecond) request.Pair.Keep(from, length, stretcher.Path());
}

void TimeStretch(const Request& request, std::span<std::int16_t> to) {
    Stretch(request, to.size(),
            [&](TimeStretcher& stretcher) { RenderStretched(stretcher, to, request.Report); });
}

// Stretched as much as the pitch is to rise, then played so much faster.
void PitchShift(const Request& request, std::span<std::int16_t> to) {
    const std::size_t stretched = ScaledLength(request);
    Stretch(request, stretched, [&](TimeStretcher& stretcher) {
        RenderStretchedAndResampled(stretcher, stretched, to, request.Library, request.Report);
    });
}

}  // namespace

const Rendering kResampling{&ScaledLength, &Resample};
const Rendering kPitchShifting{&SameLength, &PitchShift};
const Rendering kTimeStretching{&ScaledLength, &TimeStretch};

std::size_t MakeSilence(const Request& request, std::span<std::int16_t> sound) {
    for (std::size_t done = 0; done < sound.size();) {
        const auto piece = sound.subspan(done, std::min(kPiece, sound.size() - done));
        std::ranges::fill(piece, std::int16_t{0});
        done += piece.size();
        request.Report.Report(FractionOf(done, sound.size()));
    }
    return sound.size();
}

std::size_t ReverseSamples(const Request& request, std::span<std::int16_t> sound) {
    const std::size_t half = sound.size() / 2;
    for (std::size_t done = 0; done < half; done += kPiece) {
        const std::size_t end = std::min(half, done + kPiece);
        for (std::size_t i = done; i < end; ++i)
            std::swap(sound[i], sound[sound.size() - 1 - i]);
        request.Report.Report(FractionOf(end, half));
    }
    return sound.size();
}

std::size_t TrimSoundStart(const Request& request, std::span<std::int16_t> sound) {
    return TrimStart(sound, TrimSettingsOf(request), request.Report);
}

std::size_t TrimSoundEnd(const Request& request, std::span<std::int16_t> sound) {
    return TrimEnd(sound, TrimSettingsOf(request), request.Report);
}

std::size_t DeleteSoundSilence(const Request& request, std::span<std::int16_t> sound) {
    SilenceSettings settings;
    settings.Threshold = ThresholdOf(request.Values[0]);
    settings.Channels = request.Channels;
    settings.Attack = FramesOf(request, request.Values[1]);
    settings.Release = FramesOf(request, request.Values[2]);
    return DeleteSilence(sound, settings, request.Report);
}

}  // namespace mavrin2::kestrin
