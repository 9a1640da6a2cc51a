#include "hosts/desktop/sound/navigation.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::desktop {
namespace {

qint32 FrameAt(const SoundPosition& at, qint32 from, Place place) {
    constexpr qint32 kStepsPerView = 100;
    const qint64 view = std::max(at.ViewEnd - at.ViewStart, 1);
    const qint64 step = std::max<qint64>(view / kStepsPerView, 1);
    const auto moved = [&](qint64 by) {
        return static_cast<qint32>(std::clamp<qint64>(from + by, 0, at.Total));
    };
    switch (place) {
        case Place::Back:
            return moved(-step);
        case Place::Forward:
            return moved(step);
        case Place::PageBack:
            return moved(-view);
        case Place::PageForward:
            return moved(view);
        case Place::Begin:
            return 0;
        case Place::End:
            return at.Total;
    }
    return from;
}

}  // namespace

void Navigation::Go(Place place) {
    const SoundPosition at = editor_.Position();
    const bool forward = place == Place::Forward || place == Place::PageForward;
    const qint32 frame = FrameAt(at, at.Selected && forward ? at.End : at.Start, place);
    editor_.MoveTo(frame);
    Reveal(frame);
}

void Navigation::Extend(Place place) {
    const SoundPosition at = editor_.Position();
    const bool backwards = at.Selected && anchor_ == at.End;
    const qint32 moving = at.Selected && !backwards ? at.End : at.Start;
    anchor_ = backwards ? at.End : at.Start;
    const qint32 frame = FrameAt(at, moving, place);
    editor_.Select(std::min(anchor_, frame), std::max(anchor_, frame));
    Reveal(frame);
}

void Navigation::Reveal(qint32 frame) const {
    const SoundPosition at = editor_.Position();
    if (frame >= at.ViewStart && frame <= at.ViewEnd) return;
    const qint32 length = at.ViewEnd - at.ViewStart;
    const qint32 start = std::clamp(frame - length / 2, 0, std::max(at.Total - length, 0));
    editor_.ShowRange(start, start + length);
}

void Navigation::ShowTimes(double factor) const {
    constexpr qint32 kShortest = 2;
    const SoundPosition at = editor_.Position();
    const qint32 view = at.ViewEnd - at.ViewStart;
    const auto length = static_cast<qint32>(
        std::clamp<double>(std::round(view * factor), std::min(at.Total, kShortest), at.Total));
    const bool visible = at.Start >= at.ViewStart && at.Start <= at.ViewEnd;
    const double center = visible ? at.Start : at.ViewStart + view / 2.0;
    const double share = view > 0 ? (center - at.ViewStart) / view : 0;
    const auto start = static_cast<qint32>(
        std::clamp<double>(std::round(center - length * share), 0, at.Total - length));
    editor_.ShowRange(start, start + length);
}

void Navigation::ShowLevelTimes(double factor) {
    constexpr qint32 kLeast = 10;
    constexpr qint32 kMost = 1000;
    percent_ = std::clamp(static_cast<qint32>(std::lround(percent_ * factor)), kLeast, kMost);
    editor_.Members().Call("ZoomVertical", percent_);
}

}  // namespace mavrin2::desktop
