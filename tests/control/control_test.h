#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <span>

#include "control/signal/pcm_convert.h"
#include "tests/support/control_world.h"

namespace mavrin2::tests {

// A test with its own control, created beforehand.
class ControlTest : public testing::Test, protected ControlWorld {
protected:
    ControlTest() { Start(); }

    // A document of a thousand mono frames at 1000 Hz, in blocks of 100 frames.
    void OpenThousand() { OpenSound(Ramp(1000)); }
    void Delete(std::int32_t first, std::int32_t end) {
        Select(first, end);
        EXPECT_EQ(Control->DeleteSelect(), S_OK);
    }
};

// What a converter makes of mono or stereo samples, given so many values at a time.
inline Samples Converted(const Samples& samples, signal::PcmFormat from, signal::PcmFormat to,
                         std::size_t valuesPerBlock) {
    signal::CPcmConvert convert;
    convert.SetInput(from.Rate, from.Channels, from.Bits);
    convert.SetOutput(to.Rate, to.Channels, to.Bits);
    convert.Init();
    Samples result;
    for (auto rest = std::span(samples); !rest.empty();) {
        const auto block = std::as_bytes(rest.first(std::min(valuesPerBlock, rest.size())));
        Samples converted(convert.OutputCapacityFor(block.size()) / 2 + 1);
        const auto done = convert.Convert(block, std::as_writable_bytes(std::span(converted)));
        convert.UpdateFilterHistory(done.Produced);
        converted.resize(done.Produced / 2);
        result.insert(result.end(), converted.begin(), converted.end());
        rest = rest.subspan(block.size() / 2);
    }
    return result;
}

}  // namespace mavrin2::tests
