#pragma once

#include <cstdint>
#include <span>

#include "control/editor/operation.h"
#include "control/editor/ports.h"

namespace mavrin2::editor {

// Raises ChangeMarker for each number. False when a host has started something else meanwhile,
// which ends it.
inline bool ReportMarkers(EditorEvents& events, std::span<const std::int32_t> numbers,
                          const OperationTicket& ticket) {
    for (const std::int32_t number : numbers) {
        events.ChangeMarker(number);
        if (!ticket.IsCurrent()) return false;
    }
    return true;
}

}  // namespace mavrin2::editor
