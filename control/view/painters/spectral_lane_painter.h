#pragma once

#include "control/view/lanes.h"
#include "control/view/scene.h"
#include "control/view/spectral_pictures.h"
#include "control/view/surface.h"

namespace mavrin2::view {

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
