#pragma once

#include <memory>

#include "control/view/geometry.h"
#include "control/view/level_scale.h"
#include "control/view/time_scale.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// Where everything is in the picture, and the steps of its scales. Both scales are computed whether
// they are shown or not: the grid and the lines of full scale depend on them.
class ViewLayout {
public:
    explicit ViewLayout(const ViewServices& services) : services_(services) {}

    // Takes the host's fonts and brings the scales' types into range.
    void TakeScales();
    // Whether that has been done.
    bool Ready() const { return scaleXFont_ && scaleYFont_; }

    // Places everything inside `bounds`, and computes the scales.
    void Layout(const Rectangle& bounds);
    void ComputeTimeScale();
    void ComputeLevelScale();
    // The document is about to be closed.
    void ResetLevelScale();

    const Geometry& Area() const { return area_; }
    const BusyWave& Busy() const { return busy_; }
    const TimeScale& Time() const { return time_; }
    const LevelScale& Level() const { return level_; }
    const platform::Font& ScaleXFont() const { return *scaleXFont_; }
    const platform::Font& ScaleYFont() const { return *scaleYFont_; }
    ViewThumb Thumb() const;

private:
    bool TooSlowToFollow() const;

    const ViewServices& services_;
    Geometry area_;
    BusyWave busy_;
    TimeScale time_;
    LevelScale level_;
    std::shared_ptr<const platform::Font> scaleXFont_;
    std::shared_ptr<const platform::Font> scaleYFont_;
};

}  // namespace mavrin2::view
