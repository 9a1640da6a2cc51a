#pragma once

#include "control/editor/channel_switches.h"
#include "control/editor/document_format.h"
#include "control/editor/edit_settings.h"
#include "control/editor/editor_events.h"
#include "control/editor/operation_status.h"
#include "control/editor/operation_ticket.h"
#include "control/editor/play_state.h"
#include "control/editor/undo_history.h"
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
    editor::UndoHistory& History;
    const editor::DocumentFormat& Format;
    editor::OperationStatus& Status;
    const editor::EditSettings& Settings;
    const editor::ChannelSwitches& Channels;
    const editor::PlayState& Play;
    editor::OperationCounter& Operations;
    editor::EditorEvents& Events;
    Style& HostStyle;
    Display& Screen;
};

}  // namespace mavrin2::view
