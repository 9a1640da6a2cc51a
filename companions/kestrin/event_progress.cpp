#include "companions/kestrin/event_progress.h"

#include <algorithm>

#include "companions/contracts/companion_events.h"

namespace mavrin2::kestrin {
namespace {

void Fire(const automation::ConnectionPoint& sinks, contracts::KestrinEvent event,
          std::span<const VARIANT> arguments) {
    automation::FireEvent(sinks, static_cast<DISPID>(event), arguments);
}

}  // namespace

void EventProgress::Report(double fraction) {
    if (aborted_) throw Aborted();
    const int percent = std::min(99, static_cast<int>(fraction * 100));
    if (percent <= percent_) return;
    percent_ = percent;
    VARIANT argument{};
    argument.vt = VT_I4;
    argument.lVal = percent;
    Fire(sinks_, contracts::KestrinEvent::Progress, {&argument, 1});
    if (aborted_) throw Aborted();
}

void EventProgress::Finish() const {
    Fire(sinks_, contracts::KestrinEvent::Done, {});
}

}  // namespace mavrin2::kestrin
