#pragma once

#include "automation/connection_points.h"
#include "control/editor/ports.h"

namespace mavrin2::server {

// Raises the control's events on every connected host.
class EventSource final : public editor::EditorEvents {
public:
    explicit EventSource(const automation::ConnectionPoint& point) : point_(point) {}

    void BlockOperation(int percent) override;
    void EndOperation() override;
    void ChangePosition() override;

private:
    const automation::ConnectionPoint& point_;
};

}  // namespace mavrin2::server
