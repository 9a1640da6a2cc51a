// A host that does something else from inside every event of every operation.

#include <algorithm>

#include "automation/text.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2;

// Lengths tell the documents apart: the versions before and after the operation, others that
// nested operations make.
constexpr int kOriginal = 1000, kEdited = 900, kDeleted = 800, kOpened = 700, kNested = 50;
constexpr int kAny = 0, kNone = -1;
constexpr int kAsRead = -2;  // of kOpened, the blocks of 300 that came before the event
constexpr int kEmpty = -3;

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

void Convert(ControlWorld& world, LONG frequency) {
    world.Control->ConvertSampleType(interfaces::FrequencyConstants{frequency},
                                     interfaces::ChannelsConstants::STEREO);
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
    {"StopAndPaste", [](ControlWorld& w) { w.Control->Stop(), w.Control->Paste(); }},
    {"StopAndConvert", [](ControlWorld& w) { w.Control->Stop(), Convert(w, 50); }},
    {"StopAndPlay", [](ControlWorld& w) { w.Control->Stop(), w.Control->Play({}); }},
    {"StopAndRecord", [](ControlWorld& w) { w.Control->Stop(), w.Control->Record({}); }},
    {"Pause", [](ControlWorld& w) { w.Control->Pause(); }},
};

struct Operation {
    const char* Name;
    void (*Run)(ControlWorld& world);
    int BusyEvents;  // those in which the operation is not over yet
    // The length of the document at the end, for each nested act: from inside a busy event, and
    // from inside a later one.
    std::pair<int, int> Left[std::size(kNestedActs)];
};

void OpenAnother(ControlWorld& world) {
    world.Dusoro->Source.Samples = Ramp(kOpened);
    world.Dusoro->Source.FramesPerRead = 300;
    world.Open();
}

void PlayAll(ControlWorld& world) {
    world.Control->Play(interfaces::PlayTypeConstants::PLAYLOOPED);
    for (const LONG frames : {1, 90, 1, 200}) {
        world.Velto->PlayTo(frames);
        world.Velto->FinishBlock();
    }
    world.Velto->RunOut();
}

void RecordSome(ControlWorld& world) {
    world.Control->Record(interfaces::RecordTypeConstants::RECORD_CLEAR);
    for (const LONG frames : {40, 80}) {
        world.Rimbal->Hear(Samples(40, 1));
        world.Rimbal->RecordTo(frames);
    }
    if (world.Control) world.Control->Stop();
}

constexpr std::pair<int, int> kGone{kNone, kNone}, kOther{kNested, kNested}, kNew{kEmpty, kEmpty};

constexpr Operation kOperations[] = {
    {"DeleteSelect",
     [](ControlWorld& w) { w.Control->DeleteSelect(); },
     8,
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
     {kGone, kOther, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kNew, kOther, kGone}},
    {"StartSelect",
     [](ControlWorld& w) { w.Position->put_StartSelect(500); },
     0,
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
    {"OpenTrack", [](ControlWorld& w) { w.OpenTrack(Ramp(kOpened)); }, 0, {kGone, kOther, kNew}},
    // What an edit leaves that was stopped or overtaken depends on how far it had come.
    {"Copy", [](ControlWorld& w) { w.Control->Copy(); }, 0, {kGone, kOther, kNew}},
    {"Cut", [](ControlWorld& w) { w.Control->Cut(); }, 0, {kGone, kOther, kNew}},
    {"Paste", [](ControlWorld& w) { w.Control->Paste(); }, 0, {kGone, kOther, kNew}},
    {"PasteFromFile", [](ControlWorld& w) { w.PasteFromFile(); }, 0, {kGone, kOther, kNew}},
    {"Mix", [](ControlWorld& w) { w.Control->Mix(50, 50); }, 0, {kGone, kOther, kNew}},
    {"MixFromFile", [](ControlWorld& w) { w.MixFromFile(50, 50); }, 0, {kGone, kOther, kNew}},
    {"PutAudioArray", [](ControlWorld& w) { w.PutAudioArray(Ramp(70)); }, 0, {kGone, kOther, kNew}},
    {"ConvertSampleType", [](ControlWorld& w) { Convert(w, 200); }, 0, {kGone, kOther, kNew}},
    {"Play", PlayAll, 0, {kGone, kOther, kNew}},
    {"Record", RecordSome, 0, {kGone, kOther, kNew}},
};

class FromInside : public testing::TestWithParam<std::tuple<int, int>> {};

int LengthOf(ControlWorld& world) {
    if (!world.History().Current()) return kNone;
    const auto length = static_cast<int>(world.DocumentSamples().size());
    EXPECT_EQ(world.History().Current()->TotalBytes.Count(), length * 2) << "as the file says";
    return length;
}

void Prepare(ControlWorld& world) {
    world.Start();
    world.Dusoro->Source.Frequency = 100;
    world.OpenSound(Ramp(kOriginal));
    world.Control->put_FileBufferSize(1000);
    world.Select(0, 100);
    world.Control->DeleteSelect();
    world.Select(500, 600);
    world.SetClip(200, 1, Ramp(600));
    world.Private->Source.Samples = Ramp(250);
}

TEST_P(FromInside, TheNestedActStandsAndTheRestIsUndone) {
    const auto [operationIndex, actIndex] = GetParam();
    const Operation& operation = kOperations[operationIndex];
    int events = 0;
    {
        ControlWorld world;
        Prepare(world);
        operation.Run(world);
        const std::string heard = world.Events->Take();
        events = 1 + static_cast<int>(std::ranges::count(heard, ' '));
    }
    for (int n = 1; n <= events; ++n) {
        SCOPED_TRACE(n);
        ControlWorld world;
        Prepare(world);
        world.Events->InEvent(n, [&] { kNestedActs[actIndex].Act(world); });
        operation.Run(world);
        ASSERT_TRUE(world.Events->Acted());
        if (world.Control) {
            const bool busy = n <= operation.BusyEvents;
            const auto [inBusy, later] = operation.Left[actIndex];
            const int left = busy ? inBusy : later;
            const int length = LengthOf(world);
            if (left != kAny) {
                EXPECT_EQ(length, left == kAsRead  ? std::min(n * 300, kOpened)
                                  : left == kEmpty ? 0
                                                   : left);
            }
            // What the act has begun.
            if (std::ranges::count(std::initializer_list<LONG>{1, 2, 5}, world.Status()))
                world.Control->Stop();
            EXPECT_EQ(world.Status(), 0);
            EXPECT_FALSE(world.Velto->Running);
            EXPECT_FALSE(world.Rimbal->Running);
            EXPECT_NE(world.Dusoro->State, FakeDusoro::Output::Unfinished);
            EXPECT_FALSE(world.Dusoro->Reading);
            EXPECT_FALSE(world.Pindle->Open);
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
