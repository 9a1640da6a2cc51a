#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mavrin2::script {

// A point in a sound as people write it: in seconds or in sample frames.
class TimePoint {
public:
    // Reads `1.5` (seconds), `1:30.25` (minutes), `1:02:03.5` (hours) and `66150f` (frames);
    // nothing for anything else. Minutes and seconds behind a larger unit are below 60.
    static std::optional<TimePoint> Parse(std::string_view text);

    // To the nearest frame; `rate` is in frames per second.
    std::int64_t Frames(int rate) const;

private:
    TimePoint(double value, bool isFrames) : value_(value), isFrames_(isFrames) {}

    double value_;
    bool isFrames_;
};

// h:mm:ss.mmm, to the nearest millisecond.
std::string DurationText(std::int64_t frames, int rate);

}  // namespace mavrin2::script
