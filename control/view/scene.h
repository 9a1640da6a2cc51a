#pragma once

#include <cstdint>

#include "control/editor/channel_switches.h"
#include "control/editor/document_format.h"
#include "control/editor/document_state.h"
#include "control/editor/markers/marker_settings.h"
#include "control/editor/operation.h"
#include "control/editor/view_state.h"
#include "control/view/geometry.h"
#include "control/view/level_scale.h"
#include "control/view/pens.h"
#include "control/view/style.h"
#include "control/view/time_scale.h"
#include "control/view/view_data.h"
#include "control/view/view_services.h"

namespace mavrin2::view {

// Everything that a painter may look at while one layer is drawn.
struct Scene {
    const Geometry& Area;
    const Pens& Pen;
    ColorSettings Colors;
    ScaleSettings ScaleX;
    ScaleSettings ScaleY;
    const platform::Font& ScaleXFont;
    const platform::Font& ScaleYFont;
    const TimeScale& Time;
    const LevelScale& Level;
    const BusyWave& Busy;
    ViewThumb Thumb;
    const ViewData& Data;

    const editor::DocumentState* Document = nullptr;  // null when none is open
    const editor::DocumentFormat& Format;
    const editor::ChannelSwitches& Channels;
    editor::StatusConstants Status = editor::StatusConstants::Idle;
    const editor::RecordState& Recording;

    const PictureSettings& Settings;
    const editor::MarkerSettings& Markers;
    const editor::SelectionColumns& Selection;
    const editor::DragState& Drag;
    std::int32_t Progress = 0;  // percent of a file that is being read or written

    bool HasSound() const { return Document && Document->TotalBytes != Bytes(0); }
    bool Spectral() const { return Settings.TypeView == TypeViewConstants::SPECTRAL; }
    bool Loading() const { return Status == editor::StatusConstants::Opening; }
    // The system is too slow to show what is being recorded.
    bool OnlyCenterLine() const {
        return Status == editor::StatusConstants::Recording &&
               Recording.VisualizationInUse == editor::RecordState::CenterLine;
    }
    bool LevelScaleLeft() const { return ScaleY.Orientation == 2; }
    bool Selected() const { return Document && Document->Selected != 0; }
    bool InView(signal::Bytes position) const {
        const editor::ZoomLevel level = Document->Level();
        return position >= level.StartView && position <= level.EndView;
    }
    ColumnMapping Columns() const {
        const editor::ZoomLevel level = Document->Level();
        return {level.StartView, level.EndView, Area.WaveWidth, Format.FrameSize()};
    }
    // Both channels of a document of two.
    bool BothVisible() const { return Format.Channels > 1 && Channels.VisibleCount > 1; }
};

}  // namespace mavrin2::view
