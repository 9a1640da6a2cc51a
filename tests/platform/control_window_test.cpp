// What every control window owes its control: the mouse as it is, and the window's own as long as
// it exists.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "platform/memory/recording_window.h"
#include "tests/platform/system_window.h"

namespace mavrin2::tests {
namespace {

using platform::MouseAction;
using platform::MouseButton;
using platform::MouseEvent;
using platform::PointerShape;

// A window of a test.
struct MemoryWindow {
    explicit MemoryWindow(platform::WindowHandler& handler)
        : Window(std::make_unique<platform::RecordingWindow>(handler, 100, 50)) {}

    std::unique_ptr<platform::RecordingWindow> Window;

    void Send(const MouseEvent& event) { Window->Send(event); }
    void LoseCapture() { Window->LoseCapture(); }
    void Destroy() { Window->Destroy(); }
    PointerShape Pointer() const { return Window->Pointer(); }
};

template <class World>
class ControlWindowContract : public testing::Test, protected platform::WindowHandler {
protected:
    void Paint(platform::DrawingTarget&, int, int) override {}
    void Destroyed() override { ++Ends; }
    void Mouse(const MouseEvent& event) override {
        Events.push_back(event);
        if (Act) Act();
    }
    void CaptureLost() override { ++Losses; }

    std::vector<MouseEvent> Take() { return std::exchange(Events, {}); }

    World Place{*this};
    std::vector<MouseEvent> Events;
    std::function<void()> Act;
    int Losses = 0;
    int Ends = 0;
};

using Worlds = testing::Types<MemoryWindow, SystemWindow>;
TYPED_TEST_SUITE(ControlWindowContract, Worlds);

TYPED_TEST(ControlWindowContract, PassesTheMouseOnAsItIs) {
    const MouseEvent events[] = {
        {MouseAction::Move, 0, 0},
        {MouseAction::Move, 99, 49, MouseButton::None, 7, 7},
        {MouseAction::Down, 5, 6, MouseButton::Left, 1, 0},
        {MouseAction::Up, 5, 6, MouseButton::Left, 0, 1},
        {MouseAction::DoubleClick, 5, 6, MouseButton::Left, 1, 2},
        {MouseAction::Down, 7, 8, MouseButton::Right, 2, 4},
        {MouseAction::Up, 7, 8, MouseButton::Right, 4, 0},
        {MouseAction::DoubleClick, 7, 8, MouseButton::Right, 2, 3},
        {MouseAction::Wheel, 50, 20, MouseButton::None, 0, 2, 120},
        {MouseAction::Wheel, 50, 20, MouseButton::None, 1, 0, -240},
    };
    for (const MouseEvent& event : events) {
        this->Place.Send(event);
        EXPECT_THAT(this->Take(), testing::ElementsAre(event));
    }
}

TYPED_TEST(ControlWindowContract, HasTheMouseToItselfWhileItIsCaptured) {
    const MouseEvent outside{MouseAction::Move, -8, 70};
    this->Place.Send(outside);
    EXPECT_THAT(this->Take(), testing::IsEmpty());
    this->Place.Window->CaptureMouse(true);
    this->Place.Window->CaptureMouse(true);
    this->Place.Send(outside);
    EXPECT_THAT(this->Take(), testing::ElementsAre(outside));
    this->Place.Window->CaptureMouse(false);
    this->Place.Send(outside);
    EXPECT_THAT(this->Take(), testing::IsEmpty());
    EXPECT_EQ(this->Losses, 0) << "it was given back";

    this->Place.LoseCapture();
    EXPECT_EQ(this->Losses, 0) << "there was nothing to lose";
    this->Place.Window->CaptureMouse(true);
    this->Place.LoseCapture();
    EXPECT_EQ(this->Losses, 1);
    this->Place.Send(outside);
    EXPECT_THAT(this->Take(), testing::IsEmpty());
}

TYPED_TEST(ControlWindowContract, ShowsThePointerThatIsSet) {
    this->Place.Send({MouseAction::Move, 1, 1});
    EXPECT_EQ(this->Place.Pointer(), PointerShape::Arrow);
    this->Act = [&] { this->Place.Window->SetPointer(PointerShape::SizeWE); };
    this->Place.Send({MouseAction::Move, 2, 1});
    EXPECT_EQ(this->Place.Pointer(), PointerShape::SizeWE);
}

TYPED_TEST(ControlWindowContract, MayGoInTheMiddleOfAnEvent) {
    // Tips may be set at any time, also for nothing.
    this->Act = [&] {
        this->Place.Window->SetTip("Marker \xC3\xA9", 3, 4);
        this->Place.Window->SetTip("", 3, 4);
        this->Place.Window->CaptureMouse(true);
        this->Place.Window.reset();
    };
    this->Place.Send({MouseAction::Move, 3, 4});
    EXPECT_EQ(this->Losses, 0);
    EXPECT_EQ(this->Ends, 0) << "not reported when it was asked for";
}

TYPED_TEST(ControlWindowContract, OutlivesItsParentWithoutDoingAnything) {
    this->Place.Window->CaptureMouse(true);
    this->Place.Destroy();
    EXPECT_EQ(this->Ends, 1);
    this->Place.Window->CaptureMouse(true);
    this->Place.Window->SetPointer(PointerShape::Cross);
    this->Place.Window->SetTip("late", 0, 0);
    this->Place.Window->Invalidate();
    EXPECT_FALSE(this->Place.Window->DrawNow([](platform::DrawingTarget&) { FAIL(); }));
    EXPECT_EQ(this->Place.Window->Handle(), nullptr);
}

}  // namespace
}  // namespace mavrin2::tests
