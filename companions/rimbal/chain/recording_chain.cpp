#include "companions/rimbal/chain/recording_chain.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::rimbal {

RecordingChain::RecordingChain(devices::Format format,
                               std::shared_ptr<const SharedSettings> settings)
    : settings_(std::move(settings)),
      notch_(FilterKind::Notch, format.Rate, format.Channels),
      highPass_(FilterKind::HighPass, format.Rate, format.Channels),
      lowPass_(FilterKind::LowPass, format.Rate, format.Channels),
      gain_(format.Rate, format.Channels),
      gate_(format.Rate, format.Channels) {}

void RecordingChain::Process(std::span<std::int16_t> samples) {
    const RecordingSettings settings = settings_->Get();
    notch_.Configure(settings.Notch);
    highPass_.Configure(settings.HighPass);
    lowPass_.Configure(settings.LowPass);
    gain_.Configure(settings.Gain);
    if (!settings.Gain.Enabled) gain_.Reset();
    if (!notch_.IsOn() && !highPass_.IsOn() && !lowPass_.IsOn() && !settings.Gain.Enabled) return;

    precise_.assign(samples.begin(), samples.end());
    for (SecondOrderFilter* filter : {&notch_, &highPass_, &lowPass_})
        if (filter->IsOn()) filter->Process(precise_);
    if (settings.Gain.Enabled) gain_.Process(precise_);
    std::transform(precise_.begin(), precise_.end(), samples.begin(), [](double value) {
        return static_cast<std::int16_t>(std::lround(std::clamp(value, -32768.0, 32767.0)));
    });
}

void RecordingChain::Store(std::span<const std::int16_t> samples,
                           std::vector<std::int16_t>& stored) {
    gate_.Configure(settings_->Get().Gate);
    gate_.Pass(samples, stored);
}

}  // namespace mavrin2::rimbal
