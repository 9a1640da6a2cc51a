#pragma once

#include "automation/connection_points.h"
#include "control/editor/ports.h"
#include "control/view/mouse/mouse_events.h"

namespace mavrin2::server {

// Raises the control's events on every connected host.
class EventSource final : public editor::EditorEvents, public view::MouseEvents {
public:
    explicit EventSource(const automation::ConnectionPoint& point) : point_(point) {}

    void BlockOperation(int percent) override;
    void EndOperation() override;
    void ChangePosition() override;
    void ChangeMarker(std::int32_t number) override;

    void DblClick() override;
    void MouseDown(int button, int modifiers, std::int16_t x, std::int16_t y) override;
    void MouseUp(int button, int modifiers, std::int16_t x, std::int16_t y) override;
    void MouseMove(int buttons, int modifiers, std::int16_t x, std::int16_t y) override;
    void ScaleXClick() override;
    void ScaleYClick() override;
    void MarkerClick(std::int32_t number) override;
    void NewMarker(std::int32_t number) override;

private:
    const automation::ConnectionPoint& point_;
};

}  // namespace mavrin2::server
