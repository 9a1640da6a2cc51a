#pragma once

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/recursion.h"
#include "companions/kestrin/kernels/sweep.h"

namespace mavrin2::kestrin {

// Four first-order all-pass filters in series, mixed with the sound itself: where they turn the
// phase by half a turn, a notch appears. Their common frequency sweeps up and down three octaves.
class Phaser final : public Effect {
public:
    struct Settings {
        double Delay = 0;    // seconds by which the four hold back low tones, at the lowest point
        float Mix = 0;       // of the turned sound, 1 as loud as the sound itself
        float Feedback = 0;  // of the turned sound into the first filter, −1 … 1 excluded
    };
    Phaser(const Settings& settings, double rate);

    void Process(std::span<float> block) override;

private:
    static constexpr std::size_t kStages = 4;
    using System = StateSpace<kStages, float>;

    // The one coefficient of the four filters.
    double CoefficientAt(double position) const;
    void NextPoint();
    System SystemOf(float coefficient) const;

    Settings settings_;
    double rate_;
    double lowest_;  // Hz
    Sweep sweep_;
    Recursion<kStages, float> recursion_;
    double point_ = 0;
    double coefficient_;
    double step_ = 0;       // of the coefficient, from one piece to the next
    std::size_t left_ = 0;  // pieces to the next point
};

}  // namespace mavrin2::kestrin
