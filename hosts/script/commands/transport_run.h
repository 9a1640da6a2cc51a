#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "hosts/binding/event_connection.h"
#include "hosts/binding/late_binding.h"
#include "hosts/script/commands/progress_bar.h"

namespace mavrin2::script {

// Waits while the control plays or records, and shows the level on a terminal.
class TransportRun {
public:
    // `work` names what runs.
    TransportRun(IDispatch& control, const char* work);
    TransportRun(const TransportRun&) = delete;
    TransportRun& operator=(const TransportRun&) = delete;

    // Until the control is idle, `last` says so at a position in frames, or the user asks to stop,
    // which is then forgotten. Returns whether the user has asked.
    bool Wait(const std::function<bool(std::int32_t frames)>& last);
    // Where it was when the device last said so, in frames.
    std::int32_t Reached() const { return reached_; }
    // Why the control could not play, or store what was recorded; empty if it could.
    std::string Error() const;

private:
    void OnEvent(DISPID event, std::span<const VARIANT> arguments);

    binding::LateBound control_;
    const char* work_;
    std::int32_t rate_;
    std::int32_t reached_ = 0;
    ProgressBar bar_;
    DISPID meter_ = DISPID_UNKNOWN;
    binding::EventConnection events_;
};

}  // namespace mavrin2::script
