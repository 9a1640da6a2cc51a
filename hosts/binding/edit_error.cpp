#include "hosts/binding/edit_error.h"

namespace mavrin2::binding {

std::string EditErrorText(std::int32_t error) {
    switch (error) {
        case -11:
            return "out of memory";
        case -12:
            return "not a sound file in a known format";
        case -13:
            return "the format is not supported";
        case -14:
            return "the playback device cannot be used";
        case -15:
            return "the recording device cannot be used";
        case -18:
            return "cannot write the working copy in the temporary folder";
        case -22:
            return "no component for sound files is registered";
        default:
            return "failed with error " + std::to_string(error);
    }
}

}  // namespace mavrin2::binding
