#pragma once

#include "control/editor/play_state.h"
#include "control/editor/services.h"
#include "control/view/display.h"
#include "control/view/style.h"
#include "platform/files.h"
#include "platform/system_colors.h"
#include "platform/text.h"

namespace mavrin2::view {

// What the picture is made from: references to parts that belong to the control and outlive it.
struct ViewServices {
    platform::FileSystem& Files;
    platform::FontLoader& Fonts;
    platform::SystemColors SystemColors;
    editor::Document Document;
    editor::Operation Operation;
    const editor::PlayState& Play;
    Style& HostStyle;
    Display& Screen;
};

}  // namespace mavrin2::view
