#pragma once

#include "hosts/desktop/sound/editor.h"

namespace mavrin2::desktop {

enum class Place { Back, Forward, PageBack, PageForward, Begin, End };

// The steps that the keyboard makes in a sound. All of them throw CallError.
class Navigation {
public:
    explicit Navigation(const Editor& editor) : editor_(editor) {}

    // Moves the current position and shows it.
    void Go(Place place);
    // Moves one end of the selection and shows it; the other end stays where the selection began.
    void Extend(Place place);

    // Shows `factor` times as much of the sound. What is at the selection's start stays where it is
    // on the screen.
    void ShowTimes(double factor) const;
    // Shows `factor` times as much of full scale.
    void ShowLevelTimes(double factor);

private:
    void Reveal(qint32 frame) const;

    const Editor& editor_;
    qint32 anchor_ = -1;    // where the selection that Extend has made began
    qint32 percent_ = 100;  // of full scale, shown
};

}  // namespace mavrin2::desktop
