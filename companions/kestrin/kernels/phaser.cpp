#include "companions/kestrin/kernels/phaser.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::kestrin {
namespace {

constexpr double kSweepsPerSecond = 0.5;
constexpr double kOctaves = 3;
// The filters keep their frequency for so many samples.
constexpr std::size_t kPiece = 64;

}  // namespace

// A first-order all-pass holds back low tones by 1 / (π · its frequency).
Phaser::Phaser(const Settings& settings, double rate)
    : settings_(settings),
      rate_(rate),
      lowest_(kStages / (std::numbers::pi * settings.Delay)),
      sweep_(kSweepsPerSecond, -90, rate) {}

void Phaser::Process(std::span<float> block) {
    std::array<double, kPiece> values;
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), kPiece);
        const auto piece = std::span(values).first(count);
        std::copy_n(block.begin(), count, piece.begin());
        recursion_.Set(SystemAt(position_));
        recursion_.Process(piece);
        std::transform(piece.begin(), piece.end(), block.begin(),
                       [](double value) { return static_cast<float>(value); });
        position_ += static_cast<double>(count);
        block = block.subspan(count);
    }
}

// Each stage is y = a · x + s with the next s = (1 − a²) · x − a · s. The first one hears the last
// one without a delay: the loop is solved for it.
StateSpace<Phaser::kStages> Phaser::SystemAt(double position) const {
    const double frequency =
        std::min(lowest_ * std::exp2(kOctaves * 0.5 * (1 + sweep_.At(position))), rate_ * 0.49);
    const double tangent = std::tan(std::numbers::pi * frequency / rate_);
    const double a = (tangent - 1) / (tangent + 1);
    const double level = 1 / (1 + settings_.Mix);
    const double loop = 1 / (1 - settings_.Feedback * std::pow(a, kStages));

    StateSpace<kStages> system;
    // What an input, or the state of one stage, makes of outputs and next states.
    const auto run = [&](double input, std::array<double, kStages> state, auto&& put) {
        double turned = 0;  // by the states alone
        for (std::size_t k = 0; k < kStages; ++k)
            turned = a * turned + state[k];
        double x = (input + settings_.Feedback * turned) * loop;
        std::array<double, kStages> next;
        for (std::size_t k = 0; k < kStages; ++k) {
            next[k] = (1 - a * a) * x - a * state[k];
            x = a * x + state[k];
        }
        put((input + settings_.Mix * x) * level, next);
    };
    run(1, {}, [&](double output, const auto& next) {
        system.Direct = output;
        system.Input = next;
    });
    for (std::size_t i = 0; i < kStages; ++i) {
        std::array<double, kStages> state{};
        state[i] = 1;
        run(0, state, [&](double output, const auto& next) {
            system.Output[i] = output;
            for (std::size_t row = 0; row < kStages; ++row)
                system.Transition[row][i] = next[row];
        });
    }
    return system;
}

}  // namespace mavrin2::kestrin
