#pragma once

#include "control/view/geometry.h"
#include "control/view/scene.h"
#include "control/view/spectral_pictures.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// What a lane shows beside its sound: the lines of full scale, and instead of the sound a wave that
// grows while a file is being loaded.
class LanePainter {
public:
    LanePainter(const Scene& scene, const Lane& lane) : scene_(scene), lane_(lane.Area) {}

    void DrawBoundaries(Surface& surface) const;
    void DrawBusyWave(Surface& surface) const;

private:
    const Scene& scene_;
    const Rectangle& lane_;
};

// The spectral picture of one channel.
class SpectralLanePainter {
public:
    SpectralLanePainter(const Scene& scene, const Lane& lane, const SpectralPictures& pictures)
        : scene_(scene), lane_(lane), pictures_(pictures) {}

    void Draw(Surface& surface) const;

private:
    const Scene& scene_;
    const Lane& lane_;
    const SpectralPictures& pictures_;
};

}  // namespace mavrin2::view
