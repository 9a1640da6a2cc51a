#include "hosts/desktop/effects/effect_dialog.h"
#include "hosts/desktop/effects/effects_menu.h"
#include "tests/desktop/screen.h"

namespace mavrin2::desktop {
namespace {

using binding::DescribedMember;
using binding::LateBound;

class Effects : public OnScreen {
protected:
    Effects() : transform_(editor_.Part("Transform")) {
        const auto information = binding::TypeInformationOf(transform_.Object());
        description_ = binding::TypeDescription(*information);
        constants_ = binding::ConstantsBeside(*information);
    }

    std::vector<EffectParameter> Parameters(const char* operation) {
        return ParametersOf(*description_.Find(operation, INVOKE_FUNC), constants_);
    }

    Editor editor_;
    LateBound transform_;
    binding::TypeDescription description_;
    std::vector<binding::Constant> constants_;
};

TEST_F(Effects, AskForWhatTheDescriptionsName) {
    const auto delay = Parameters("Delay");
    ASSERT_EQ(delay.size(), 3U);
    EXPECT_EQ(delay[0].Label, "Delay time");
    EXPECT_EQ(delay[0].Unit, "ms");
    EXPECT_EQ(delay[0].High, 10000);
    EXPECT_EQ(delay[2].Low, -95);
    const auto trim = Parameters("Trim");
    ASSERT_EQ(trim.size(), 3U);
    EXPECT_EQ(trim[0].Label, "Trim level");
    EXPECT_EQ(trim[0].Low, -96);
    EXPECT_EQ(trim[1].Unit, "ms");
    EXPECT_EQ(trim[2].Choices.value(static_cast<int>(trim[2].Usual)), "Both");
    EXPECT_EQ(Parameters("Normalize")[1].Type, EffectParameter::Kind::Switch);
    EXPECT_EQ(Parameters("Envelope")[0].Type, EffectParameter::Kind::Numbers);
    EXPECT_EQ(Parameters("Fade")[1].Unit, "percent");
    EXPECT_EQ(Spoken("LowPassFilter"), "Low pass filter");
    EXPECT_EQ(Spoken("PeakEQFilter"), "Peak EQ filter");
}

// Every dialog's first values make a call that the control accepts.
TEST_F(Effects, RunWithTheValuesThatTheirDialogsOffer) {
    editor_.Members().Call("Open", kSound);
    QObject::connect(&editor_, &Editor::Failed,
                     [](const QString& reason) { ADD_FAILURE() << reason.toStdString(); });
    int operations = 0;
    for (const DescribedMember& operation : description_.Members()) {
        if (operation.Kind != INVOKE_FUNC) continue;
        const EffectDialog dialog(operation, ParametersOf(operation, constants_), nullptr);
        const auto given = dialog.Arguments();
        std::vector<VARIANT> arguments(given.begin(), given.end());
        editor_.Select(1000, 9000);
        const std::string before = editor_.Version();
        EXPECT_TRUE(editor_.Edit([&] {
            binding::Invoke(transform_.Object(),
                            {operation.Name, operation.Id, DISPATCH_METHOD, arguments});
        })) << operation.Name;
        EXPECT_NE(editor_.Version(), before) << operation.Name;
        editor_.Members().Call("Undo");
        ++operations;
    }
    EXPECT_EQ(operations, 33);
}

}  // namespace
}  // namespace mavrin2::desktop
