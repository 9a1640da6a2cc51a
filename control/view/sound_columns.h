#pragma once

#include <span>

#include "control/view/block_scan.h"
#include "control/view/close_up_curve.h"
#include "control/view/overview_builder.h"
#include "control/view/spectral_pictures.h"
#include "control/view/spectrum.h"
#include "control/view/view_data.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// What the lanes show: the visible range of the document, condensed to columns, from the work file
// or from the overview summary.
class SoundColumns {
public:
    SoundColumns(const ViewServices& services, const Geometry& area)
        : services_(services), area_(area), overview_(services, area) {}

    const ViewData& Data() const { return data_; }
    const SpectralPictures& Spectral() const { return spectral_; }
    OverviewBuilder& Overview() { return overview_; }

    // For the document's view. False when the sound could not be read.
    bool Recompute(TypeViewConstants type);
    // For a block of interleaved samples that is not in the document yet, in its place.
    void ShowBlock(std::span<const std::int16_t> samples, TypeViewConstants type);
    // The sizes of lanes, or what is visible, have changed.
    void BuildSpectralPictures();
    void ClearSpectralPictures() { spectral_.Clear(); }

private:
    bool RecomputePeaks(const ScanRange& range);
    void ComputeSpectrum(const ScanRange& range);

    const ViewServices& services_;
    const Geometry& area_;
    ViewData data_;
    OverviewBuilder overview_;
    SpectrumAnalyzer analyzer_;
    SpectrumTable spectrum_;
    SpectralPictures spectral_;
};

}  // namespace mavrin2::view
