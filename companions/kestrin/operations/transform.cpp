#include "companions/kestrin/operations/transform.h"

#include <algorithm>
#include <type_traits>

#include "companions/kestrin/kernels/effect_runner.h"

namespace mavrin2::kestrin {
namespace {

constexpr std::int32_t kLowestRate = 100;
constexpr std::int32_t kHighestRate = 768000;

std::vector<double> Limited(std::span<const Parameter> parameters, std::span<const float> values) {
    std::vector<double> limited;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        limited.push_back(parameters[i].Limit(values[i]));
    return limited;
}

std::vector<std::vector<float>> Limited(std::span<const Parameter> parameters,
                                        std::span<const std::span<const float>> arrays) {
    std::vector<std::vector<float>> limited;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        auto& array = limited.emplace_back(arrays[i].begin(), arrays[i].end());
        for (float& value : array)
            value = static_cast<float>(parameters[i].Limit(value));
    }
    return limited;
}

}  // namespace

void Transform::SetRate(std::int32_t rate) {
    rate_ = std::clamp(rate, kLowestRate, kHighestRate);
    BeginPair();
}

void Transform::SetChannels(std::int32_t channels) {
    channels_ = std::clamp(channels, 1, 64);
}

// The switches are moved before and after the channels of one sound.
void Transform::SetSmoothStart(bool on) {
    smoothing_.Start = on;
    BeginPair();
}

void Transform::SetSmoothEnd(bool on) {
    smoothing_.End = on;
    BeginPair();
}

void Transform::Run(OperationId id, SampleBlock& block, std::span<const float> values,
                    std::span<const std::span<const float>> arrays, Progress& progress) {
    // The channels of a sound follow each other, through the same operation; the second one does
    // not come when the first one fails.
    if (last_ != id) BeginPair();
    last_ = id;
    try {
        RunLimited(id, block, values, arrays, progress);
    } catch (...) {
        BeginPair();
        throw;
    }
}

void Transform::RunLimited(OperationId id, SampleBlock& block, std::span<const float> values,
                           std::span<const std::span<const float>> arrays, Progress& progress) {
    const Operation& operation = OperationOf(id);
    progress.Report(0);
    if (block.Samples().empty()) return;
    const auto limitedValues = Limited(operation.Values, values);
    const auto limitedArrays = Limited(operation.Arrays, arrays);
    PartOfProgress making(progress, 0, operation.Analysis);
    const Request request{limitedValues,
                          limitedArrays,
                          block.Samples(),
                          static_cast<double>(rate_),
                          static_cast<std::size_t>(channels_),
                          libraries_,
                          random_,
                          pair_,
                          operation.Analysis > 0 ? static_cast<Progress&>(making) : progress};
    RunAs(operation, request, block, progress);
}

void Transform::RunAs(const Operation& operation, const Request& request, SampleBlock& block,
                      Progress& progress) const {
    const SmoothingSettings settings = operation.Smoothed ? smoothing_ : SmoothingSettings{};
    const Smoothing smoothing(settings, rate_, operation.FrameSize, block.Samples());
    std::visit(
        [&](const auto& how) {
            using How = std::decay_t<decltype(how)>;
            if constexpr (std::is_same_v<How, MakeEffect>) {
                const auto effect = how(request);
                if (!effect) return;
                PartOfProgress processing(progress, operation.Analysis, 1);
                RunEffect(*effect, block.Samples(), processing);
                smoothing.Apply(block.Samples());
            } else if constexpr (std::is_same_v<How, Rearrange>) {
                const std::size_t left = how(request, block.Samples());
                smoothing.Apply(block.Samples().first(left));
                if (left < block.Samples().size()) block.Shorten(left);
            } else {
                const auto made = block.MakeReplacement(how.Length(request));
                how.Run(request, made);
                smoothing.Apply(made);
                block.UseReplacement();
            }
        },
        operation.How);
}

}  // namespace mavrin2::kestrin
