#pragma once

#include "automation/connection_points.h"
#include "control/editor/ports.h"
#include "control/processing/transport_view.h"
#include "control/view/mouse/mouse_events.h"

namespace mavrin2::server {

// Raises the control's events on every connected host.
class EventSource final : public editor::EditorEvents,
                          public processing::TransportEvents,
                          public view::MouseEvents {
public:
    explicit EventSource(const automation::ConnectionPoint& point) : point_(point) {}

    void BlockOperation(int percent) override;
    void EndOperation() override;
    void ChangePosition() override;
    void ChangeMarker(std::int32_t number) override;

    void Meter(std::int32_t left, std::int32_t right) override;
    void ChangePlayPosition() override;
    void EndPlay() override;
    void GainChange(std::int32_t gain) override;

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
