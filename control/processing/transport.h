#pragma once

#include "control/editor/operation.h"
#include "control/editor/ports.h"
#include "control/processing/transform_companion.h"

namespace mavrin2::processing {

// Starts and stops what is running in the control. A block loop ends when it next checks the
// status; the transform companion is asked to end early.
class Transport final : public editor::Activity {
public:
    Transport(editor::OperationStatus& status, TransformCompanion& transforms)
        : status_(status), transforms_(transforms) {}

    void Stop() override {
        transforms_.Abort();
        status_.Stop();
    }

private:
    editor::OperationStatus& status_;
    TransformCompanion& transforms_;
};

}  // namespace mavrin2::processing
