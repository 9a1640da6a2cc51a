#include "hosts/script/commands/transport_run.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "hosts/binding/edit_error.h"
#include "hosts/script/commands/times.h"
#include "platform/interrupt.h"
#include "platform/posting.h"
#include "platform/terminal.h"

namespace mavrin2::script {
namespace {

// A request to stop is seen after so long at most.
constexpr std::chrono::milliseconds kPatience(20);

// Of a bar that shows the loudest 60 dB, in percent.
int BarOf(std::int32_t level) {
    constexpr double kFullScale = 32768;
    constexpr double kRange = 60;
    if (level < 1) return 0;
    return static_cast<int>(std::lround((20 * std::log10(level / kFullScale) / kRange + 1) * 100));
}

std::int32_t NumberOf(const VARIANT& value) {
    automation::Variant number;
    return SUCCEEDED(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_I4))
               ? number.lVal
               : 0;
}

}  // namespace

TransportRun::TransportRun(IDispatch& control, const char* work)
    : control_(automation::ComPtr<IDispatch>(&control)),
      work_(work),
      rate_(control_.Part("FileInfo").Number("Frequency")),
      bar_(platform::TerminalWidth(stderr) ? stderr : nullptr),
      events_(control, [this](DISPID event, std::span<const VARIANT> arguments) {
          OnEvent(event, arguments);
      }) {
    if (const auto* event = events_.Events().Find("Meter", INVOKE_FUNC)) meter_ = event->Id;
}

void TransportRun::OnEvent(DISPID event, std::span<const VARIANT> arguments) {
    if (event != meter_ || arguments.size() < 2) return;
    // The levels of the end come when the control is idle again.
    if (control_.Number("Status") == 0) return;
    reached_ = control_.Part("Position").Number("CurrentPosition");
    bar_.Show(std::string(work_) + " " + DurationText(reached_, rate_),
              BarOf(std::max(NumberOf(arguments[0]), NumberOf(arguments[1]))));
}

bool TransportRun::Wait(const std::function<bool(std::int32_t frames)>& last) {
    const auto queue = platform::PostingQueue::OfThisThread();
    bool asked = false;
    while (!asked && control_.Number("Status") != 0) {
        queue->Pump(kPatience);
        if (last(control_.Part("Position").Number("CurrentPosition"))) break;
        asked = platform::TakeInterrupt();
    }
    control_.Call("Stop");
    bar_.Clear();
    return asked;
}

std::string TransportRun::Error() const {
    const std::int32_t error = control_.Number("LastErrorNum");
    return error == 0 ? "" : binding::EditErrorText(error);
}

}  // namespace mavrin2::script
