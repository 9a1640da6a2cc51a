#pragma once

#include <algorithm>
#include <cstdint>

namespace mavrin2::dusoro {

// A length that a file claims, held against the file's size: no coding gets more frames out of a
// byte than FLAC does with silence, and a damaged header could claim any number.
inline std::int64_t PlausibleFrames(std::int64_t claimed, std::int64_t fileBytes) {
    constexpr std::int64_t kMostFramesPerByte = 8192;
    return std::clamp<std::int64_t>(claimed, 0, fileBytes * kMostFramesPerByte);
}

}  // namespace mavrin2::dusoro
