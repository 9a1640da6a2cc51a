#pragma once

#include <cstdint>

#include "companions/contracts/constants.h"

namespace mavrin2::editor {

using contracts::ErrorConstants;

// What the control is doing, as hosts read it.
enum class StatusConstants : std::int16_t {
    Idle = 0,
    Playing = 1,
    Opening = 3,
    Saving = 4,
    Paused = 5,
    BuildingOverview = 7,
    DeleteSelect = 8
};

// One for the whole control. A long operation sets Status and stops when a host has set it back to
// Idle through Stop.
struct OperationStatus {
    StatusConstants Status = StatusConstants::Idle;
    ErrorConstants LastError = ErrorConstants::NOERRORS;

    bool Idle() const { return Status == StatusConstants::Idle; }
};

}  // namespace mavrin2::editor
