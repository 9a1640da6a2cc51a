#pragma once

#include "control/editor/operation.h"
#include "control/editor/ports.h"

namespace mavrin2::processing {

// Starts and stops what goes on in the control. There are no devices and no transforms to stop yet:
// what runs is a block loop, which ends at its next look at the status.
class Transport final : public editor::Activity {
public:
    explicit Transport(editor::OperationStatus& status) : status_(status) {}

    void Stop() override { status_.Stop(); }

private:
    editor::OperationStatus& status_;
};

}  // namespace mavrin2::processing
