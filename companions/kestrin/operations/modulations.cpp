// Operations that delay a sound, steadily or in a sweep.

#include <algorithm>
#include <cmath>

#include "companions/kestrin/kernels/echo.h"
#include "companions/kestrin/kernels/phaser.h"
#include "companions/kestrin/kernels/reverb.h"
#include "companions/kestrin/kernels/swept_delay.h"
#include "companions/kestrin/kernels/vibrato.h"
#include "companions/kestrin/operations/makers.h"

namespace mavrin2::kestrin {
namespace {

constexpr int kChorusVoices = 3;

std::unique_ptr<Effect> MakeSweptDelay(const Request& request, int voices) {
    SweptDelay::Settings settings;
    settings.Delay = request.Values[0] * request.Rate / 1000;
    settings.Mix = static_cast<float>(request.Values[1] / 100);
    settings.Feedback = static_cast<float>(request.Values[2] / 100);
    settings.Depth = request.Values[3] / 100;
    settings.SweepFrequency = request.Values[4];
    settings.SweepPhase = request.Values[5];
    settings.Voices = voices;
    return std::make_unique<SweptDelay>(settings, request.Rate);
}

}  // namespace

std::unique_ptr<Effect> MakeVibrato(const Request& request) {
    return std::make_unique<Vibrato>(request.Values[0], request.Values[1], request.Values[2],
                                     request.Rate);
}

std::unique_ptr<Effect> MakeDelay(const Request& request) {
    const long long samples = std::llround(request.Values[0] * request.Rate / 1000);
    return std::make_unique<Echo>(static_cast<std::size_t>(std::max(1LL, samples)),
                                  static_cast<float>(request.Values[1] / 100),
                                  static_cast<float>(request.Values[2] / 100));
}

std::unique_ptr<Effect> MakeFlanger(const Request& request) {
    return MakeSweptDelay(request, 1);
}

std::unique_ptr<Effect> MakeChorus(const Request& request) {
    return MakeSweptDelay(request, kChorusVoices);
}

std::unique_ptr<Effect> MakePhaser(const Request& request) {
    return std::make_unique<Phaser>(
        Phaser::Settings{request.Values[0] / 1000, static_cast<float>(request.Values[1] / 100),
                         static_cast<float>(request.Values[2] / 100)},
        request.Rate);
}

std::unique_ptr<Effect> MakeReverb(const Request& request) {
    Reverb::Settings settings;
    settings.Delay = request.Values[0] / 1000;
    settings.Mix = static_cast<float>(request.Values[1] / 100);
    settings.Feedback = request.Values[2] / 100;
    settings.TailGain = static_cast<float>(request.Values[3] / 100);
    settings.Frequency = request.Values[4];
    settings.Reflections = static_cast<int>(request.Values[5]);
    return std::make_unique<Reverb>(settings, request.Rate);
}

}  // namespace mavrin2::kestrin
