#include <gtest/gtest.h>

#include "platform/ports.h"
#include "tests/support/windows/message_boxes.h"

namespace {

using mavrin2::tests::MessageBoxes;

TEST(ErrorDialog, IsAMessageBoxWithAnIconAndOneButton) {
    const MessageBoxes boxes;
    mavrin2::platform::SystemPorts().Errors->Show("KovMavrin",
                                                  "Mavrin2Scale is not registered. \xC3\xA4");
    ASSERT_EQ(boxes.Seen().size(), 1U);
    const std::wstring box = boxes.Seen().front();
    EXPECT_EQ(box.substr(0, 9), L"KovMavrin");
    EXPECT_NE(box.find(L"Static: Mavrin2Scale is not registered. \u00e4"), box.npos);
    EXPECT_NE(box.find(L"Button: "), box.npos);
    EXPECT_EQ(box.find(L"Button: "), box.rfind(L"Button: ")) << "there is nothing to choose";
}

}  // namespace
