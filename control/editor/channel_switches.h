#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace mavrin2::editor {

// Which channels are shown, and which ones edits and operations act on. Flags are 0 or what a host
// has written.
struct ChannelSwitches {
    static constexpr std::int16_t Most = 10;

    // Of the document's channels; see Recount.
    std::int16_t OperationCount = 1;
    std::int16_t VisibleCount = 1;
    std::array<std::int16_t, Most> Operation = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    std::array<std::int16_t, Most> Visible = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    std::int16_t Num = 0;  // the channel that a host speaks of, from 1

    // After each change of a flag, and when a document is made, opened or closed.
    void Recount(std::int32_t channels) {
        OperationCount = VisibleCount = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(channels) && i < Most; ++i) {
            if (Operation[i]) ++OperationCount;
            if (Visible[i]) ++VisibleCount;
        }
    }
};

}  // namespace mavrin2::editor
