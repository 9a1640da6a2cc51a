#include "control/view/sound_columns.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::view {

bool SoundColumns::Recompute(TypeViewConstants type) {
    const editor::DocumentState& document = *services_.Document.History.Current();
    const editor::DocumentFormat& format = services_.Document.Format;
    const ScanRange range{document.WorkFilePath,    document.Level().StartView,
                          document.Level().EndView, format.Channels,
                          format.Frequency,         area_.WaveWidth};
    const auto shown = static_cast<double>((range.EndView - range.StartView).Count());
    data_.CloseUpLevel =
        CloseUpLevelOf(shown / area_.WaveWidth / format.Channels, format.Frequency);
    if (type == TypeViewConstants::SPECTRAL) ComputeSpectrum(range);
    if (type != TypeViewConstants::WAVEFORM) return true;
    if (!RecomputePeaks(range)) return false;
    if (data_.CloseUpLevel != 0)
        BuildCloseUpCurve(data_, format.Channels, area_.WaveWidth, services_.Play.Interpolation);
    return true;
}

bool SoundColumns::RecomputePeaks(const ScanRange& range) {
    const OverviewSummary& summary = overview_.Summary();
    const bool wide =
        (range.EndView - range.StartView).Count() / 2 > OverviewSummary::ValuesPerFactor;
    if (!summary.Valid || !wide) return ScanWorkFile(services_.Files, range, data_);
    const auto total =
        static_cast<double>(services_.Document.History.Current()->TotalBytes.Count());
    const auto entryOf = [&](Bytes position) {
        return static_cast<double>(position.Count()) * summary.Length / total;
    };
    const auto first = static_cast<std::int64_t>(std::floor(entryOf(range.StartView)));
    const auto end = static_cast<std::int64_t>(std::ceil(entryOf(range.EndView)));
    ScanSummary(summary, std::max<std::int64_t>(first, 0),
                std::min<std::int64_t>(end, summary.Length), range.Channels, range.WaveWidth,
                data_);
    return true;
}

void SoundColumns::ComputeSpectrum(const ScanRange& range) {
    // What cannot be read leaves the pictures as they are.
    if (analyzer_.ComputeSpectrum(services_.Files, range, spectrum_)) BuildSpectralPictures();
}

void SoundColumns::ShowBlock(std::span<const std::int16_t> samples, TypeViewConstants type) {
    const editor::DocumentFormat& format = services_.Document.Format;
    const auto frames = static_cast<std::int32_t>(samples.size()) / format.Channels;
    if (frames < 1 || area_.WaveWidth < 1) return;
    if (type == TypeViewConstants::SPECTRAL) {
        analyzer_.ComputeSpectrumBlock(samples, format.Channels, area_.WaveWidth, spectrum_);
        BuildSpectralPictures();
    } else if (type == TypeViewConstants::WAVEFORM) {
        data_.CloseUpLevel = CloseUpLevelOf(
            static_cast<double>(samples.size()) * 2 / area_.WaveWidth / format.Channels,
            format.Frequency, kLiveLimits);
        ScanBlock(samples, format.Channels, area_.WaveWidth, data_);
        if (data_.CloseUpLevel != 0)
            BuildCloseUpCurve(data_, format.Channels, area_.WaveWidth,
                              services_.Play.Interpolation);
    }
}

void SoundColumns::BuildSpectralPictures() {
    spectral_.Build(spectrum_, area_, services_.Document.Channels,
                    services_.Document.Format.Channels, services_.HostStyle.Colors());
}

}  // namespace mavrin2::view
