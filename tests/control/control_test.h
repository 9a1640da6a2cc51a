#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/control_world.h"

namespace mavrin2::tests {

// A test with a control of its own, which is there from the beginning.
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

}  // namespace mavrin2::tests
