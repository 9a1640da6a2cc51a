#pragma once

#include <string>

#include "control/view/scene.h"
#include "control/view/surface.h"

namespace mavrin2::view {

// The scale below the waveform, with its grid across it.
class TimeScalePainter {
public:
    explicit TimeScalePainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    double ColumnsAt(double value) const;
    std::int32_t MajorColumn(double value) const;
    void DrawLabel(Surface& surface, std::int32_t x, const std::string& label) const;
    void DrawGrid(Surface& surface, std::int32_t x) const;
    void DrawMinorTicks(Surface& surface, double value) const;

    const Scene& scene_;
};

// The scale beside the waveform: sample values, mirrored around the middle of each lane, or in the
// spectral picture frequencies, from the bottom up.
class LevelScalePainter {
public:
    explicit LevelScalePainter(const Scene& scene);

    void Draw(Surface& surface) const;

private:
    // Rows between which one lane's labels are placed.
    struct LabelLane {
        std::int32_t Top, Bottom;
    };

    void DrawLane(Surface& surface, LabelLane lane) const;
    // A tick, a label or a line of the grid at its row and, but for frequencies, its mirror image.
    template <class DrawAt>
    void AtBothRows(LabelLane lane, std::int32_t value, DrawAt&& draw) const;
    void DrawValue(Surface& surface, LabelLane lane, std::int32_t value) const;
    void DrawLabel(Surface& surface, LabelLane lane, std::int32_t value) const;
    void DrawGrid(Surface& surface, LabelLane lane, std::int32_t value) const;
    void DrawMinorTicks(Surface& surface, LabelLane lane, std::int32_t value) const;
    void DrawTick(Surface& surface, std::int32_t y, std::int32_t length) const;
    std::int32_t DistanceOf(LabelLane lane, std::int32_t value) const;
    std::int32_t ZeroOf(LabelLane lane) const;

    const Scene& scene_;
    bool shown_;  // there is room for it; the grid is drawn in any case
    Rectangle strip_;
    std::int32_t tick_;
    std::int32_t textLeft_;
    std::int32_t lineHeight_;
};

// What the numbers of the scales count.
class UnitLabelPainter {
public:
    explicit UnitLabelPainter(const Scene& scene) : scene_(scene) {}

    void Draw(Surface& surface) const;

private:
    const char* LevelUnit() const;

    const Scene& scene_;
};

}  // namespace mavrin2::view
