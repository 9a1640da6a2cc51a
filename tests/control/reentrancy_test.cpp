// A host that does something else from inside every event of every operation.

#include "automation/text.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2;

// Lengths tell the documents apart: the versions before and after the operation, others that
// nested operations make.
constexpr int kOriginal = 1000, kEdited = 900, kDeleted = 800, kOpened = 700, kNested = 50;
constexpr int kEmpty = 0, kNone = -1;
constexpr int kAsRead = -2;  // of kOpened, the blocks of 300 that came before the event

struct Nested {
    const char* Name;
    void (*Act)(ControlWorld& world);
};

void OpenNested(ControlWorld& world) {
    world.Dusoro->Source.Samples = Ramp(kNested);
    world.Open("/nested.wav");
}
void ChooseFolder(ControlWorld& world) {
    world.Control->put_TempDirectory(automation::Bstr(std::string_view("/tmp/private/")).Get());
}

constexpr Nested kNestedActs[] = {
    {"Close", [](ControlWorld& w) { w.Control->Close(); }},
    {"Open", OpenNested},
    {"New", [](ControlWorld& w) { w.NewSound(); }},
    {"Undo", [](ControlWorld& w) { w.Control->Undo(); }},
    {"Stop", [](ControlWorld& w) { w.Control->Stop(); }},
    {"DeleteSelect", [](ControlWorld& w) { w.Control->DeleteSelect(); }},
    {"StopAndDeleteSelect", [](ControlWorld& w) { w.Control->Stop(), w.Control->DeleteSelect(); }},
    {"StopAndUndo", [](ControlWorld& w) { w.Control->Stop(), w.Control->Undo(); }},
    {"StopAndSave", [](ControlWorld& w) { w.Control->Stop(), w.Save("/nested.wav"); }},
    {"EndOperations", [](ControlWorld& w) { w.Control->EndOperations(); }},
    {"ChooseFolder", ChooseFolder},
    {"StopAndChooseFolder", [](ControlWorld& w) { w.Control->Stop(), ChooseFolder(w); }},
    {"CloseAndOpen", [](ControlWorld& w) { w.Control->Close(), OpenNested(w); }},
    {"LastRelease", [](ControlWorld& w) { w.End(); }},
};

struct Operation {
    const char* Name;
    void (*Run)(ControlWorld& world);
    int BusyEvents;  // those in which the operation is not over yet
    int Events;
    // The length of the document at the end, for each nested act: from inside a busy event, and
    // from inside a later one.
    std::pair<int, int> Left[std::size(kNestedActs)];
};

void OpenAnother(ControlWorld& world) {
    world.Dusoro->Source.Samples = Ramp(kOpened);
    world.Dusoro->Source.FramesPerRead = 300;
    world.Open();
}

constexpr std::pair<int, int> kGone{kNone, kNone}, kOther{kNested, kNested}, kNew{kEmpty, kEmpty};

constexpr Operation kOperations[] = {
    {"DeleteSelect",
     [](ControlWorld& w) { w.Control->DeleteSelect(); },
     8,
     10,
     {kGone,
      kOther,
      kNew,
      {kDeleted, kEdited},
      {kEdited, kDeleted},
      {kDeleted, kDeleted},
      {kDeleted, kDeleted},
      {kOriginal, kEdited},
      {kEdited, kDeleted},
      {kDeleted, kDeleted},
      {kDeleted, kDeleted},
      {kEdited, kDeleted},
      kOther,
      kGone}},
    {"Save",
     [](ControlWorld& w) { w.Save(); },
     4,
     4,
     {kGone,
      kOther,
      kNew,
      {kEdited, 0},
      {kEdited, 0},
      {kEdited, 0},
      {kDeleted, 0},
      {kOriginal, 0},
      {kEdited, 0},
      {kEdited, 0},
      {kEdited, 0},
      {kEdited, 0},
      kOther,
      kGone}},
    {"Open",
     OpenAnother,
     4,
     5,
     {kGone,
      kOther,
      kNew,
      {kOpened, kOpened},
      {kAsRead, kOpened},
      {kOpened, kOpened},
      {kAsRead, kOpened},
      {kAsRead, kOpened},
      {kAsRead, kOpened},
      {kOpened, kOpened},
      {kOpened, kOpened},
      {kAsRead, kOpened},
      kOther,
      kGone}},
    {"New",
     [](ControlWorld& w) { w.NewSound(); },
     0,
     1,
     {kGone, kOther, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kOther, kGone}},
    {"StartSelect",
     [](ControlWorld& w) { w.Position->put_StartSelect(500); },
     0,
     1,
     {kGone,
      kOther,
      kNew,
      {0, kOriginal},
      {0, kEdited},
      {0, kDeleted},
      {0, kDeleted},
      {0, kOriginal},
      {0, kEdited},
      {0, kEdited},
      {0, kEdited},
      {0, kEdited},
      kOther,
      kGone}},
};

class FromInside : public testing::TestWithParam<std::tuple<int, int>> {};

int LengthOf(ControlWorld& world) {
    if (!world.History().Current()) return kNone;
    const auto length = static_cast<int>(world.DocumentSamples().size());
    EXPECT_EQ(world.History().Current()->TotalBytes.Count(), length * 2) << "as the file says";
    return length;
}

TEST_P(FromInside, TheNestedActStandsAndTheRestIsUndone) {
    const auto [operationIndex, actIndex] = GetParam();
    const Operation& operation = kOperations[operationIndex];
    for (int n = 1; n <= operation.Events; ++n) {
        SCOPED_TRACE(n);
        ControlWorld world;
        world.Start();
        world.Dusoro->Source.Frequency = 100;
        world.OpenSound(Ramp(kOriginal));
        world.Control->put_FileBufferSize(1000);
        world.Select(0, 100);
        world.Control->DeleteSelect();
        world.Select(500, 600);

        world.Events->InEvent(n, [&] { kNestedActs[actIndex].Act(world); });
        operation.Run(world);
        ASSERT_TRUE(world.Events->Acted());
        if (world.Control) {
            const bool busy = n <= operation.BusyEvents;
            const auto [inBusy, later] = operation.Left[actIndex];
            const int left = busy ? inBusy : later;
            EXPECT_EQ(LengthOf(world), left == kAsRead ? std::min(n * 300, kOpened) : left);
            EXPECT_EQ(world.Status(), 0);
            EXPECT_NE(world.Dusoro->State, FakeDusoro::Output::Unfinished);
            EXPECT_FALSE(world.Dusoro->Reading);
            EXPECT_EQ(world.System.Files->OpenFiles(), 0);

            world.OpenSound(Ramp(30));
            world.Select(0, 10);
            world.Control->DeleteSelect();
            EXPECT_EQ(LengthOf(world), 20) << "it can be used as before";
            world.End();
        }
        EXPECT_TRUE(world.TempFiles().empty());
        EXPECT_EQ(world.System.Files->OpenFiles(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Everything, FromInside,
    testing::Combine(testing::Range(0, static_cast<int>(std::size(kOperations))),
                     testing::Range(0, static_cast<int>(std::size(kNestedActs)))),
    [](const auto& info) {
        return std::string(kNestedActs[std::get<1>(info.param)].Name) + "In" +
               kOperations[std::get<0>(info.param)].Name;
    });

}  // namespace
}  // namespace mavrin2::tests
