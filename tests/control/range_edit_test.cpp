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

TEST_F(DeleteSelect, TakesBlocksOfTheLengthThatIsSet) {
    OpenThousand();
    Control->put_FileBufferSize(250);
    Delete(500, 510);
    EXPECT_EQ(Events->Take(), "25% 50% 76% 100% 100% end");
}

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
        for (auto call : {&interfaces::IMavrin2::DeleteSelect, &interfaces::IMavrin2::Undo,
                          &interfaces::IMavrin2::Redo})
            EXPECT_EQ((Control.Get()->*call)(), S_OK);
        EXPECT_EQ(Save(), S_OK);
    });
    Control->DeleteSelect();
    EXPECT_EQ(statusInside, 8);
    EXPECT_EQ(LastError(), 0);
    EXPECT_EQ(Events->Take(), "10% 20% 30% 40% 50% 70% 80% 90% 100% 100% end");
    EXPECT_EQ(DocumentSamples(), Without(Ramp(1000), 500, 600));
}

TEST_F(DeleteSelect, IsCancelledByStopInAnyBlock) {
    const std::string events[] = {"10%", "20%", "30%", "40%", "50%", "70%", "80%", "90%", "100%"};
    OpenThousand();
    Select(500, 600);
    std::string heard;
    for (int block = 1; block <= 9; ++block) {
        heard += (block > 1 ? " " : "") + events[block - 1];
        Events->InEvent(block, [this] { Control->Stop(); });
        EXPECT_EQ(Control->DeleteSelect(), S_OK);
        // In the head the edit has not begun to be committed.
        EXPECT_EQ(Events->Take(), heard + (block <= 5 ? " end" : " 100% end"));
        EXPECT_EQ(Positions(), "selected 500..600 view 0..1000 of 1000");
        EXPECT_FALSE(UndoEnabled());
        EXPECT_EQ(TempFiles().size(), 1u);
        EXPECT_EQ(Status(), 0);
    }
    Events->InEvent(10, [this] { Control->Stop(); });
    Control->DeleteSelect();
    EXPECT_TRUE(UndoEnabled()) << "what is committed cannot be cancelled";
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

TEST_F(DeleteSelect, DoesNothingWithoutItsWorkFile) {
    OpenThousand();
    Select(500, 600);
    System.Files->Remove(WorkFile());
    EXPECT_EQ(Control->DeleteSelect(), S_OK);
    EXPECT_EQ(Events->Take(), "end");
    EXPECT_EQ(LastError(), 0);
    EXPECT_EQ(Positions(), "selected 500..600 view 0..1000 of 1000");
    EXPECT_TRUE(TempFiles().empty());
}

using UndoAndRedo = ControlTest;

TEST_F(UndoAndRedo, MoveAStepAtATimeToEitherEnd) {
    Control->Undo();
    EXPECT_FALSE(UndoEnabled() || RedoEnabled());
    OpenThousand();
    Control->Undo();
    for (std::size_t left = 1000; left > 700; left -= 100) {
        Delete(0, 100);
        EXPECT_EQ(DocumentSamples().size(), left - 100);
    }
    EXPECT_TRUE(UndoEnabled());
    for (const std::size_t left : {800u, 900u, 1000u, 1000u}) {
        EXPECT_EQ(Control->Undo(), S_OK);
        EXPECT_EQ(DocumentSamples().size(), left);
    }
    EXPECT_FALSE(UndoEnabled());
    EXPECT_TRUE(RedoEnabled());
    for (const std::size_t left : {900u, 800u, 700u, 700u}) {
        EXPECT_EQ(Control->Redo(), S_OK);
        EXPECT_EQ(DocumentSamples().size(), left);
    }
    EXPECT_FALSE(RedoEnabled());
}

TEST_F(UndoAndRedo, LoseWhatWasUndoneAtTheNextEdit) {
    OpenThousand();
    Delete(0, 100);
    Delete(0, 100);
    Control->Undo();
    Control->Undo();
    EXPECT_EQ(TempFiles().size(), 3u);
    Delete(0, 500);
    EXPECT_FALSE(RedoEnabled());
    EXPECT_EQ(TempFiles().size(), 2u);
}

TEST_F(UndoAndRedo, MoveOverABatchAtOnce) {
    OpenThousand();
    Delete(0, 1);
    Events->Take();
    Control->BeginOperations();
    Delete(0, 800);
    EXPECT_EQ(Events->Take(), "90% 100% 100% end") << "a batch is not silent";
    EXPECT_EQ(Positions(), "select 0..0 view 0..199 of 199");
    Delete(0, 50);
    Delete(0, 50);
    EXPECT_EQ(Control->EndOperations(), S_OK);
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 999u);
    Control->Redo();
    EXPECT_EQ(DocumentSamples().size(), 99u);
    Control->Undo();
    // Two of the three steps cannot be made: the one that can stays.
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 1000u);
    EXPECT_EQ(Status(), 0);
}

TEST_F(UndoAndRedo, CountStepsFromTheLastEditOnly) {
    OpenThousand();
    Delete(0, 100);
    Control->BeginOperations();
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 900u) << "there is nothing in the batch yet";
    // That undo has ended the batch.
    Delete(0, 100);
    Delete(0, 100);
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 800u);

    Control->BeginOperations();
    Delete(0, 100);
    Delete(0, 100);
    Control->EndOperations();
    Delete(0, 100);
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 600u);
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 700u);
    Open();
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 1000u) << "the chain begins with what was opened";
}

TEST_F(UndoAndRedo, KeepAsManyStepsAsAreSet) {
    OpenThousand();
    Control->put_UndoRedoCount(1);
    const auto first = WorkFile();
    Delete(0, 100);
    Delete(0, 100);
    EXPECT_EQ(TempFiles().size(), 2u);
    EXPECT_FALSE(System.Files->Exists(first));
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 900u);
    EXPECT_FALSE(UndoEnabled());
}

}  // namespace
}  // namespace mavrin2::tests
