#pragma once

#include "control/editor/markers/marker_display_list.h"
#include "control/editor/markers/marker_settings.h"
#include "control/editor/services.h"
#include "control/editor/view_state.h"
#include "control/interfaces/enumerations.h"
#include "control/view/display.h"
#include "control/view/style.h"
#include "platform/files.h"
#include "platform/system_colors.h"
#include "platform/text.h"

namespace mavrin2::view {

using interfaces::TypeViewConstants;

// What a host chooses of the picture as a whole.
struct PictureSettings {
    TypeViewConstants TypeView = TypeViewConstants::WAVEFORM;
    std::int16_t TypeBorder = 1;
    std::int32_t VerticalZoom = 100;  // percent of full scale that a lane is high
};

// What the picture is made from: references to parts that belong to the control and outlive it.
struct ViewServices {
    platform::FileSystem& Files;
    platform::FontLoader& Fonts;
    platform::SystemColors SystemColors;
    editor::Document Document;
    editor::Operation Operation;
    PictureSettings& Settings;
    editor::SelectionColumns& Selection;
    editor::DragState& Drag;
    editor::PlayState& Play;
    const editor::RecordState& Recording;
    const editor::MarkerSettings& MarkerSettings;
    editor::MarkerDisplayList& Markers;
    Style& HostStyle;
    Display& Screen;
};

}  // namespace mavrin2::view
