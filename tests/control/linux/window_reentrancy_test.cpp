// A host that calls and moves a painted control from inside every event of every operation on a
// sound so long that it has an overview.

#include "tests/control/control_test.h"
#include "tests/control/linux/window_world.h"

namespace mavrin2::tests {
namespace {

constexpr std::size_t kLong = 3000100;
constexpr int kWidth = 60, kHeight = 40;

struct Act {
    const char* Name;
    void (*Run)(WindowWorld& world);
};

void Shrink(WindowWorld& world) {
    world.ResizeWindow(1, kHeight);
    world.Paint();
}
void Grow(WindowWorld& world) {
    world.ResizeWindow(kWidth * 2, kHeight);
    world.Paint();
}

constexpr Act kActs[] = {
    {"EndOperations", [](WindowWorld& w) { w.Control->EndOperations(); }},
    {"Shrink", Shrink},
    {"ShrinkAndEndOperations", [](WindowWorld& w) { Shrink(w), w.Control->EndOperations(); }},
    {"GrowAndEndOperations", [](WindowWorld& w) { Grow(w), w.Control->EndOperations(); }},
    {"CloseWindow", [](WindowWorld& w) { w.CloseWindow(); }},
    {"DestroyWindow", [](WindowWorld& w) { w.DestroyWindow(); }},
    {"Undo", [](WindowWorld& w) { w.Control->Undo(); }},
    {"StopAndUndo", [](WindowWorld& w) { w.Control->Stop(), w.Control->Undo(); }},
    {"StopAndDeleteSelect", [](WindowWorld& w) { w.Control->Stop(), w.Control->DeleteSelect(); }},
    {"Close", [](WindowWorld& w) { w.Control->Close(); }},
    {"LastRelease", [](WindowWorld& w) { w.End(); }},
};

struct Operation {
    const char* Name;
    void (*Run)(WindowWorld& world);
};

constexpr Operation kOperations[] = {
    {"DeleteSelect", [](WindowWorld& w) { w.Control->DeleteSelect(); }},
    {"Undo", [](WindowWorld& w) { w.Control->Undo(); }},
    {"EndOperations", [](WindowWorld& w) { w.Control->EndOperations(); }},
    {"Open", [](WindowWorld& w) { w.Open(); }},
    {"Paint", Grow},
};

class LongSoundInAWindow : public testing::TestWithParam<int> {};

TEST_P(LongSoundInAWindow, IsShownRightWhateverAnEventDoes) {
    const Operation& operation = kOperations[GetParam()];
    const Samples sound = Ramp(kLong);
    for (const Act& act : kActs) {
        bool acted = true;
        // All of the first events; later ones are much alike.
        for (int n = 1; acted; n += n < 4 ? 1 : 4) {
            SCOPED_TRACE(std::string(act.Name) + " in event " + std::to_string(n));
            WindowWorld world;
            world.Dusoro->Source.Frequency = 192000;
            world.Start();
            world.OpenWindow(kWidth, kHeight);
            world.OpenSound(sound);
            world.Control->put_FileBufferSize(8000);
            world.Select(0, 10);
            world.Control->DeleteSelect();
            world.Select(0, 10);
            world.Events->Take();

            world.Events->InEvent(n, [&] { act.Run(world); });
            operation.Run(world);
            acted = world.Events->Acted();
            world.Events->InEvent(0, {});
            if (!world.Control || !world.History().Current()) continue;
            EXPECT_EQ(world.Status(), 0);
            EXPECT_EQ(world.System.Files->OpenFiles(), 0);
            // What is shown is what the document has, however it got there.
            world.Control->EndOperations();
            const auto shown = world.Paint();
            const int place = world.Container.Place.right;
            for (const int width : {place + 7, place}) {
                world.ResizeWindow(width, kHeight);
                world.Paint();
                world.Control->EndOperations();
            }
            EXPECT_EQ(world.Paint(), shown);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Everything, LongSoundInAWindow,
                         testing::Range(0, static_cast<int>(std::size(kOperations))),
                         [](const auto& info) { return kOperations[info.param].Name; });

}  // namespace
}  // namespace mavrin2::tests
