#include "control/processing/transform_companion.h"

#include <utility>

#include "companions/contracts/companion_events.h"

namespace mavrin2::processing {
namespace {

using contracts::KestrinEvent;
using Reaction = automation::EventReaction<TransformProgress>;

constexpr Reaction kReactions[] = {
    {static_cast<DISPID>(KestrinEvent::Progress), 1,
     [](TransformProgress& progress, std::span<const LONG> percent) {
         progress.Report(percent[0]);
     }},
    {static_cast<DISPID>(KestrinEvent::Done), 0,
     [](TransformProgress& progress, std::span<const LONG>) { progress.Report(100); }},
};

}  // namespace

void TransformCompanion::Attach(automation::ComPtr<contracts::IKestrin2> companion) {
    companion_ = std::move(companion);
    // One without events works too; it only shows no progress.
    events_.Open(companion_.Get(), contracts::DIID_IKestrin2Events,
                 automation::HandlerOf<TransformProgress>(kReactions, progress_));
}

void TransformCompanion::Release() {
    Disconnect();
    companion_.Reset();
}

void TransformCompanion::SetSampleRate(std::int32_t frequency) {
    companion_->put_SetSampleRate(frequency);
}

void TransformCompanion::SetSmoothing(bool on) {
    companion_->put_SetSmoothingFirst(on ? 1 : 0);
    companion_->put_SetSmoothingSecond(on ? 1 : 0);
}

void TransformCompanion::SetSmoothTime(std::int32_t milliseconds) {
    companion_->put_SetSmoothTime(milliseconds);
}

void TransformCompanion::Abort() {
    companion_->Abort();
}

}  // namespace mavrin2::processing
