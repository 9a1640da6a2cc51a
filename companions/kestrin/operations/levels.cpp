// Operations on the level.

#include <algorithm>

#include "companions/kestrin/kernels/channel_mix.h"
#include "companions/kestrin/kernels/decibels.h"
#include "companions/kestrin/kernels/dynamics.h"
#include "companions/kestrin/kernels/gain_envelope.h"
#include "companions/kestrin/kernels/normalizer.h"
#include "companions/kestrin/operations/makers.h"

namespace mavrin2::kestrin {
namespace {

float FactorOfPercent(double percent) {
    return static_cast<float>(percent / 100);
}

std::unique_ptr<Effect> MakeGain(const Request& request, std::vector<float> points) {
    return std::make_unique<GainEnvelope>(std::move(points), request.Sound.size());
}

// Gains between which a straight line is drawn are measured so often.
constexpr double kLevelsPerSecond = 2000;

std::unique_ptr<Effect> MakeDynamics(const Request& request, const DynamicsCurve& curve,
                                     double rmsMilliseconds) {
    const double window = rmsMilliseconds * request.Rate / 1000;
    const double step = std::min(request.Rate / kLevelsPerSecond, window / 4);
    PartOfProgress measuring(request.Report, 0, 0.7);
    PartOfProgress making(request.Report, 0.7, 1);
    const LevelCurve levels(request.Sound, static_cast<std::size_t>(window),
                            std::max<std::size_t>(1, static_cast<std::size_t>(step)), measuring);
    return std::make_unique<Dynamics>(levels, curve, making);
}

}  // namespace

std::unique_ptr<Effect> MakeChannelMix(const Request& request) {
    const auto& v = request.Values;
    return std::make_unique<ChannelMix>(
        ChannelMix::Gains{FactorOfPercent(v[0]), FactorOfPercent(v[1]), FactorOfPercent(v[2]),
                          FactorOfPercent(v[3])});
}

std::unique_ptr<Effect> MakeAmplify(const Request& request) {
    return MakeGain(request, {FactorOfPercent(request.Values[0])});
}

std::unique_ptr<Effect> MakeInvert(const Request& request) {
    return MakeGain(request, {-1});
}

std::unique_ptr<Effect> MakeFade(const Request& request) {
    return MakeGain(request,
                    {FactorOfPercent(request.Values[0]), FactorOfPercent(request.Values[1])});
}

std::unique_ptr<Effect> MakeEnvelope(const Request& request) {
    std::vector<float> points;
    for (const float percent : request.Arrays[0])
        points.push_back(FactorOfPercent(percent));
    return points.empty() ? nullptr : MakeGain(request, std::move(points));
}

std::unique_ptr<Effect> MakeNormalize(const Request& request) {
    return std::make_unique<Normalizer>(MeasureLevels(request.Sound, request.Report),
                                        request.Values[0] / 100, request.Values[1] != 0);
}

std::unique_ptr<Effect> MakeCompressor(const Request& request) {
    DynamicsCurve curve;
    curve.Threshold = request.Values[0];
    curve.Above = 1 / request.Values[1];
    return MakeDynamics(request, curve, request.Values[2]);
}

std::unique_ptr<Effect> MakeExpander(const Request& request) {
    DynamicsCurve curve;
    curve.Threshold = request.Values[0];
    curve.Below = request.Values[1];
    return MakeDynamics(request, curve, request.Values[2]);
}

std::unique_ptr<Effect> MakeNoise(const Request& request) {
    return std::make_unique<Noise>(static_cast<NoiseColor>(static_cast<int>(request.Values[1])),
                                   FactorOfDecibels(request.Values[0]), request.Rate,
                                   request.Random);
}

}  // namespace mavrin2::kestrin
