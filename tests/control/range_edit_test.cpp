#include <sstream>

#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

struct Deletion {
    const char* What;
    LONG Frequency;
    LONG Channels;
    std::size_t Frames;
    LONG First, End;
    const char* Events;
    const char* Positions;
};

class DeleteSelectOf : public ControlTest, public testing::WithParamInterface<Deletion> {};

TEST_P(DeleteSelectOf, WritesTheRestAndReportsEveryBlock) {
    const Deletion& d = GetParam();
    const auto channels = static_cast<std::size_t>(d.Channels);
    const Samples samples = Ramp(d.Frames * channels);
    Dusoro->Source.Frequency = d.Frequency;
    OpenSound(samples, d.Channels);
    Select(d.First, d.End);
    const std::string before = Positions();
    const auto oldFile = WorkFile();

    EXPECT_EQ(Control->DeleteSelect(), S_OK);
    EXPECT_EQ(Events->Take(), d.Events);
    EXPECT_EQ(Positions(), d.Positions);
    EXPECT_EQ(
        System.Files->Bytes(WorkFile()),
        WorkFileOf(static_cast<std::uint32_t>(d.Frequency), static_cast<std::uint16_t>(d.Channels),
                   Without(samples, static_cast<std::size_t>(d.First) * channels,
                           static_cast<std::size_t>(d.End) * channels)));
    EXPECT_NE(WorkFile(), oldFile);
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(LastError(), 0);
    EXPECT_EQ(System.Files->OpenFiles(), 0);

    Control->Undo();
    EXPECT_EQ(Positions(), before);
    EXPECT_EQ(WorkFile(), oldFile);
    EXPECT_EQ(DocumentSamples(), samples);
    Control->Redo();
    EXPECT_EQ(Positions(), d.Positions);
    EXPECT_EQ(Events->Take(), "") << "undo and redo are silent";
}

// A block is 100 ms; a stretch that is not longer than a block is copied in blocks of a second.
INSTANTIATE_TEST_SUITE_P(
    Stretches, DeleteSelectOf,
    testing::Values(Deletion{"InTheMiddle", 1000, 1, 1000, 500, 600,
                             "10% 20% 30% 40% 50% 70% 80% 90% 100% 100% end",
                             "select 500..499 view 0..900 of 900"},
                    Deletion{"OfStereo", 1000, 2, 1000, 500, 600,
                             "10% 20% 30% 40% 50% 70% 80% 90% 100% 100% end",
                             "select 500..499 view 0..900 of 900"},
                    Deletion{"AtTheEnd", 1000, 1, 1000, 500, 1000, "10% 20% 30% 40% 50% 100% end",
                             "select 500..499 view 0..500 of 500"},
                    Deletion{"AtTheStart", 1000, 1, 1000, 0, 800, "90% 100% 100% end",
                             "select 0..0 view 0..200 of 200"},
                    Deletion{"BetweenStretchesOfABlock", 1000, 1, 1000, 100, 900,
                             "10% 100% 100% end", "select 100..99 view 0..200 of 200"},
                    Deletion{"BetweenStretchesOfABlockAndAFrame", 1000, 1, 1000, 101, 899,
                             "10% 10% 99% 100% 100% end", "select 101..100 view 0..202 of 202"},
                    Deletion{"InBlocksOfAnOddNumberOfBytes", 1005, 1, 300, 150, 160,
                             "33% 50% 86% 100% 100% end", "select 150..149 view 0..290 of 290"},
                    Deletion{"OfTheWholeDocument", 1000, 1, 1000, 0, 1000, "100% end",
                             "select 0..0 view 0..1 of 0"},
                    Deletion{"OfAnEmptySelection", 1000, 1, 1000, 1000, 1000,
                             "10% 20% 30% 40% 50% 60% 70% 80% 90% 100% 100% end",
                             "select 1000..999 view 0..1000 of 1000"}),
    [](const auto& info) { return info.param.What; });

using DeleteSelect = ControlTest;

TEST_F(DeleteSelect, KeepsTheZoomedViewLessWhatIsGone) {
    OpenThousand();
    Position->put_StartView(200);
    Position->put_EndView(800);
    Delete(400, 500);
    EXPECT_EQ(Positions(), "select 400..399 view 200..699 of 900");
    const editor::DocumentState& state = *History().Current();
    EXPECT_EQ(state.ZoomIndex, 1);
    // Zooming out shows the whole document with the zoomed view selected.
    EXPECT_EQ(state.Zoom[0].StartView.Count(), 0);
    EXPECT_EQ(state.Zoom[0].EndView.Count(), 1800);
    EXPECT_EQ(state.Zoom[0].StartSelect.Count(), 400);
    EXPECT_EQ(state.Zoom[0].EndSelect.Count(), 1398);
    Control->Undo();
    EXPECT_EQ(Positions(), "selected 400..500 view 200..800 of 1000");
}

TEST_F(DeleteSelect, NeedsADocumentASelectionAndAnIdleControl) {
    EXPECT_EQ(Control->DeleteSelect(), S_OK);
    OpenThousand();
    Dusoro->CreateCode = -18;
    Save();
    EXPECT_EQ(Control->DeleteSelect(), S_OK);
    EXPECT_EQ(LastError(), -18) << "a refused call says nothing";
    EXPECT_EQ(Events->Take(), "");
    EXPECT_FALSE(UndoEnabled());

    Select(500, 600);
    std::int32_t statusInside = 0;
    Events->InEvent(2, [&] {
        statusInside = Status();
        using interfaces::IMavrin2;
        for (auto call : {&IMavrin2::DeleteSelect, &IMavrin2::Undo, &IMavrin2::Redo,
                          &IMavrin2::Copy, &IMavrin2::Cut, &IMavrin2::Paste})
            EXPECT_EQ((Control.Get()->*call)(), S_OK);
        PasteFromFile();
        MixFromFile(50, 50);
        PutAudioArray({1});
        EXPECT_EQ(Save(), S_OK);
    });
    Control->DeleteSelect();
    EXPECT_EQ(statusInside, 8);
    EXPECT_EQ(LastError(), 0);
    EXPECT_EQ(Events->Take(), "10% 20% 30% 40% 50% 70% 80% 90% 100% 100% end");
    EXPECT_EQ(DocumentSamples(), Without(Ramp(1000), 500, 600));
}

TEST_F(DeleteSelect, KeepsTheSelectionItBeganWith) {
    OpenThousand();
    Select(500, 600);
    Events->InEvent(1, [this] {
        Position->put_EndSelect(900);
        Position->put_StartSelect(100);
    });
    Control->DeleteSelect();
    EXPECT_EQ(DocumentSamples(), Without(Ramp(1000), 500, 600));
}

TEST_F(DeleteSelect, IsReportedInABatchToo) {
    OpenThousand();
    Control->BeginOperations();
    Delete(0, 800);
    EXPECT_EQ(Events->Take(), "90% 100% 100% end");
    EXPECT_EQ(Control->EndOperations(), S_OK);
    EXPECT_EQ(Events->Take(), "");
    EXPECT_EQ(Positions(), "select 0..0 view 0..200 of 200");
}

class UndoAndRedo : public ControlTest {
protected:
    // An act, and the document after it: hundreds of frames, "<" where it can be undone, ">" where
    // it can be redone.
    std::string Act(char act) {
        switch (act) {
            case 'd':
                Delete(0, 100);
                break;
            case 'u':
                EXPECT_EQ(Control->Undo(), S_OK);
                break;
            case 'r':
                EXPECT_EQ(Control->Redo(), S_OK);
                break;
            case 'b':
                Control->BeginOperations();
                break;
            case 'e':
                Control->EndOperations();
                break;
            case 'o':
                Open();
        }
        return act + std::to_string(DocumentSamples().size() / 100) + (UndoEnabled() ? "<" : "") +
               (RedoEnabled() ? ">" : "");
    }
};

TEST_F(UndoAndRedo, CountTheStepsOfTheLastEditOrBatch) {
    const std::pair<const char*, const char*> cases[] = {
        {"edits by themselves", "u10 d9< d8< d7< u8<> u9<> u10> u10> r9<> r8<> r7< r7<"},
        {"an edit after an undo", "d9< d8< u9<> u10> d9< r9< u10> r9<"},
        {"a batch, of which only a part can be undone again",
         "d9< b9< d8< d7< e7< u9<> r7< u9<> u10>"},
        {"an undo in a batch that is empty, which ends it", "d9< b9< u9< d8< d7< u8<>"},
        {"an edit after a batch", "b10 d9< d8< e8< d7< u8<> u9<>"},
        {"another document", "d9< d8< o10 u10 r10"},
    };
    for (const auto& [what, script] : cases) {
        OpenThousand();
        std::string done;
        std::istringstream acts(script);
        for (std::string act; acts >> act;)
            done += (done.empty() ? "" : " ") + Act(act[0]);
        EXPECT_EQ(done, script) << what;
    }
    EXPECT_EQ(Status(), 0);
}

}  // namespace
}  // namespace mavrin2::tests
