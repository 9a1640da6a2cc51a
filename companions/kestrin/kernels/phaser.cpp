#include "companions/kestrin/kernels/phaser.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::kestrin {
namespace {

constexpr double kSweepsPerSecond = 0.5;
constexpr double kOctaves = 3;
// The filters keep their coefficient for so many samples.
constexpr std::size_t kPiece = 64;
// Between points so many pieces apart it moves along a straight line.
constexpr std::size_t kPiecesOfLine = 8;

}  // namespace

// A first-order all-pass holds back low tones by 1 / (π · its frequency).
Phaser::Phaser(const Settings& settings, double rate)
    : settings_(settings),
      rate_(rate),
      lowest_(kStages / (std::numbers::pi * settings.Delay)),
      sweep_(kSweepsPerSecond, -90, rate),
      coefficient_(CoefficientAt(0)) {}

void Phaser::NextPoint() {
    point_ += kPiece * kPiecesOfLine;
    step_ = (CoefficientAt(point_) - coefficient_) / kPiecesOfLine;
    left_ = kPiecesOfLine;
}

void Phaser::Process(std::span<float> block) {
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), kPiece);
        if (left_ == 0) NextPoint();
        recursion_.Set(SystemOf(static_cast<float>(coefficient_)));
        recursion_.Process(block.first(count));
        coefficient_ += step_;
        --left_;
        block = block.subspan(count);
    }
}

double Phaser::CoefficientAt(double position) const {
    const double frequency =
        std::min(lowest_ * std::exp2(kOctaves * 0.5 * (1 + sweep_.At(position))), rate_ * 0.49);
    const double tangent = std::tan(std::numbers::pi * frequency / rate_);
    return (tangent - 1) / (tangent + 1);
}

// With the coefficient a, each stage is y = a · x + s with the next s = (1 − a²) · x − a · s. Stage
// k so hears an input through aᵏ, and the state of stage j before it through aᵏ⁻¹⁻ʲ. The first one
// hears the last one without a delay: the loop is solved for it.
Phaser::System Phaser::SystemOf(float coefficient) const {
    const float a = coefficient;
    const std::array<float, kStages + 1> power = {1, a, a * a, a * a * a, a * a * a * a};
    const float loop = 1 / (1 - settings_.Feedback * power[kStages]);
    const float level = 1 / (1 + settings_.Mix);
    const float turned = settings_.Mix * level;  // of what the last stage gives

    System system;
    system.Direct = level + turned * power[kStages] * loop;
    for (std::size_t k = 0; k < kStages; ++k)
        system.Input[k] = (1 - a * a) * power[k] * loop;
    for (std::size_t j = 0; j < kStages; ++j) {
        const float last = power[kStages - 1 - j];
        const float entering = settings_.Feedback * last * loop;
        system.Output[j] = turned * (power[kStages] * entering + last);
        for (std::size_t k = 0; k < kStages; ++k) {
            const float direct = j < k ? power[k - 1 - j] : 0.0F;
            system.Transition[j][k] =
                (1 - a * a) * (power[k] * entering + direct) - (j == k ? a : 0.0F);
        }
    }
    return system;
}

}  // namespace mavrin2::kestrin
