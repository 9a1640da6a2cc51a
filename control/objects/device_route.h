#pragma once

#include <cstdint>

#include "control/objects/attachment.h"
#include "control/processing/playback_companion.h"
#include "control/processing/recording_companion.h"

namespace mavrin2::objects {

// Passes the calls of a device's objects on to the companion of its kind. Before it has one, or
// when the control has gone, calls do nothing.
class DeviceRoute {
public:
    enum class Kind : std::int16_t { None = 0, Output = 1, Input = 2 };

    // The companions that a device may need.
    struct Companions {
        processing::PlaybackCompanion& Playback;
        processing::RecordingCompanion& Recording;
    };

    void Attach(Kind kind, const Companions& companions, IUnknown* control) {
        kind_ = kind;
        playback_.Attach(companions.Playback, control);
        recording_.Attach(companions.Recording, control);
    }
    void Detach() {
        kind_ = Kind::None;
        playback_.Detach();
        recording_.Detach();
    }
    Kind KindOfDevice() const { return kind_; }

    // Calls one of two members, which mean the same. Succeeds whatever the companion answers.
    template <class OutputMethod, class InputMethod, class... Arguments>
    HRESULT Pass(OutputMethod output, InputMethod input, Arguments... arguments) const {
        return kind_ == Kind::Output ? PassToOutput(output, arguments...)
               : kind_ == Kind::Input
                   ? recording_.Do([&](processing::RecordingCompanion& companion) {
                         companion.Call(input, arguments...);
                     })
                   : S_OK;
    }
    // Of output devices only.
    template <class Method, class... Arguments>
    HRESULT PassToOutput(Method method, Arguments... arguments) const {
        if (kind_ != Kind::Output) return S_OK;
        return playback_.Do([&](processing::PlaybackCompanion& companion) {
            companion.Call(method, arguments...);
        });
    }

private:
    Kind kind_ = Kind::None;
    Attachment<processing::PlaybackCompanion> playback_;
    Attachment<processing::RecordingCompanion> recording_;
};

}  // namespace mavrin2::objects
