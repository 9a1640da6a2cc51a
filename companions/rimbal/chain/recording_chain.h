#pragma once

#include <memory>
#include <vector>

#include "companions/devices/streams/recorder.h"
#include "companions/rimbal/chain/gain_control.h"
#include "companions/rimbal/chain/recording_settings.h"
#include "companions/rimbal/chain/second_order_filter.h"
#include "companions/rimbal/chain/sound_gate.h"

namespace mavrin2::rimbal {

// What recorded sound passes: notch, high-pass, low-pass, gain control, gate. While filters and
// gain control are off the samples stay as they are.
class RecordingChain final : public devices::RecordingProcess {
public:
    RecordingChain(devices::Format format, std::shared_ptr<const SharedSettings> settings);

    void Process(std::span<std::int16_t> samples) override;
    void Store(std::span<const std::int16_t> samples, std::vector<std::int16_t>& stored) override;
    std::int32_t Gain() const override { return gain_.Percent(); }

private:
    const std::shared_ptr<const SharedSettings> settings_;
    SecondOrderFilter notch_;
    SecondOrderFilter highPass_;
    SecondOrderFilter lowPass_;
    GainControl gain_;
    SoundGate gate_;
    std::vector<double> precise_;
};

}  // namespace mavrin2::rimbal
