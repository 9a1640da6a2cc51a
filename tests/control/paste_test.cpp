#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

class Editing : public ControlTest {
protected:
    void ExpectUnchanged(const Samples& samples) {
        EXPECT_EQ(DocumentSamples(), samples);
        EXPECT_FALSE(UndoEnabled());
        EXPECT_EQ(TempFiles().size(), 1u);
        EXPECT_EQ(System.Files->OpenFiles(), 0);
        EXPECT_EQ(Status(), 0);
    }
};

// `samples` with those from `first` to before `end` replaced.
Samples Replaced(Samples samples, std::size_t first, std::size_t end, const Samples& by) {
    const auto at = samples.begin() + static_cast<std::ptrdiff_t>(first);
    samples.erase(at, samples.begin() + static_cast<std::ptrdiff_t>(end));
    samples.insert(samples.begin() + static_cast<std::ptrdiff_t>(first), by.begin(), by.end());
    return samples;
}

using Copying = Editing;

TEST_F(Copying, WritesTheSelectionInBlocksAndChangesNothing) {
    struct {
        LONG First, End;
        const char* Events;
    } const cases[] = {{100, 350, "40% 80% 100% end"},
                       {100, 200, "100% end"},  // a second at a time, when it is not longer
                       {0, 1000, "10% 20% 30% 40% 50% 60% 70% 80% 90% 100% end"},
                       {700, 700, "end"}};
    OpenSound(Ramp(2000), 2);
    for (const auto& c : cases) {
        Select(c.First, c.End);
        EXPECT_EQ(Control->Copy(), S_OK);
        EXPECT_EQ(Events->Take(), c.Events);
        EXPECT_EQ(System.Files->Bytes(ClipFile),
                  WorkFileOf(1000, 2,
                             Ramp(static_cast<std::size_t>(c.End - c.First) * 2,
                                  static_cast<std::int16_t>(c.First * 2))));
        EXPECT_EQ(LastError(), 0);
    }
    Position->put_Selected(0);
    Events->Take();
    Control->Copy();
    Control->Cut();
    EXPECT_EQ(Events->Take(), "") << "nothing is selected";
    ExpectUnchanged(Ramp(2000));
}

TEST_F(Copying, LeavesAPartWhenCancelledAndNoneWhenItFails) {
    OpenThousand();
    Select(100, 500);
    std::int32_t statusInside = 0;
    Events->InEvent(2, [&] { statusInside = Status(), Control->Stop(); });
    Control->Copy();
    EXPECT_EQ(statusInside, 6);
    EXPECT_EQ(Events->Take(), "25% 50% end");
    EXPECT_EQ(System.Files->Bytes(ClipFile), WorkFileOf(1000, 1, Ramp(200, 100)));

    System.Files->SetFreeSpace(500);
    Control->Cut();
    EXPECT_EQ(LastError(), -18) << "and what could not be copied is not cut out";
    EXPECT_FALSE(System.Files->Exists(ClipFile));
    ExpectUnchanged(Ramp(1000));
    System.Files->SetFreeSpace({});
    Events->Take();
    Control->Cut();
    EXPECT_EQ(Events->Take(), "25% 50% 75% 100% end 10% 60% 70% 80% 90% 100% 100% end");
    EXPECT_EQ(DocumentSamples(), Without(Ramp(1000), 100, 500));
    EXPECT_EQ(System.Files->Bytes(ClipFile), WorkFileOf(1000, 1, Ramp(400, 100)));
}

using Pasting = Editing;

TEST_F(Pasting, ReplacesTheSelectionOrInserts) {
    // All zero, so that there is nothing to see of the crossfade.
    const Samples clip(200);
    struct {
        bool Selected;
        const char* Events;
        const char* Positions;
        Samples After;
    } const cases[] = {
        {true, "10% 20% 30% 40% 50% 50% 59% 70% 80% 90% 100% 100% end",
         "selected 500..699 view 0..1100 of 1100", Replaced(Samples(1000), 500, 600, clip)},
        // Ten milliseconds of the old sound are used up.
        {false, "10% 20% 30% 40% 50% 50% 59% 61% 71% 81% 91% 100% 100% end",
         "selected 500..699 view 0..1190 of 1190", Replaced(Samples(1000), 500, 510, clip)},
    };
    SetClip(1000, 1, clip);
    for (const auto& c : cases) {
        OpenSound(Samples(1000));
        Select(500, c.Selected ? 600 : 500);
        Position->put_Selected(c.Selected);
        Events->Take();
        EXPECT_EQ(Control->Paste(), S_OK);
        EXPECT_EQ(Events->Take(), c.Events);
        EXPECT_EQ(Positions(), c.Positions);
        EXPECT_EQ(DocumentSamples(), c.After);
        EXPECT_EQ(LastError(), 0);
        Control->Undo();
        EXPECT_EQ(Positions(), "selected 500.." + std::to_string(c.Selected ? 600 : 500) +
                                   " view 0..1000 of 1000");
    }
}

TEST_F(Pasting, FadesInOverTheSoundThatWasThere) {
    const Samples faded = {1000, 687, 381, 92, -175, -414, -618, -782, -902, -975};
    struct {
        const char* What;
        std::size_t Clip;
        Samples Pasted;
    } const cases[] = {
        {"a clip that is longer", 20, Replaced(Samples(20, -1000), 0, 10, faded)},
        {"one of half the length", 5, Samples(faded.begin(), faded.begin() + 5)},
        {"one that is too short, which ends the fading", 4, Samples(4, -1000)},
        {"nothing, which only uses the sound up", 0, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.What);
        OpenSound(Samples(1000, 1000));
        SetClip(1000, 1, Samples(c.Clip, -1000));
        Position->put_StartSelect(300);
        Control->Paste();
        EXPECT_EQ(DocumentSamples(), Replaced(Samples(1000, 1000), 300, 310, c.Pasted));
        // A companion's blocks fade alike.
        Control->Undo();
        Position->put_Selected(0);
        Private->Source.Samples = Samples(c.Clip, -1000);
        PasteFromFile();
        EXPECT_EQ(DocumentSamples(), Replaced(Samples(1000, 1000), 300, 310, c.Pasted));
    }
}

TEST_F(Pasting, ConvertsAClipOfAnotherFormat) {
    for (const LONG frequency : {4000, 16000, 44100}) {
        const Samples clip = Ramp(2500, -1000);
        const Samples pasted = Converted(clip, {8000, 1}, {frequency, 2}, clip.size());
        Dusoro->Source.Frequency = frequency;
        OpenSound(Samples(1000), 2);
        SetClip(8000, 1, clip);
        Control->put_FileBufferSize(600000);
        Select(500, 500);
        Control->Paste();
        // The crossfade works on what is converted; after it the sound is the converter's.
        const Samples after = DocumentSamples();
        const LONG faded = frequency / 100 * 2;
        EXPECT_EQ(Samples(after.begin() + 1000 + faded, after.end()),
                  Samples(pasted.begin() + faded, pasted.end()));
    }
}

TEST_F(Pasting, TakesOtherFilesThroughAPrivateCompanion) {
    OpenThousand();
    Select(500, 600);
    Private->Source.Samples = Samples(2200);
    const std::string calls =
        "OpenSoundFile(/other.ogg, 0, 1); GetErrorCode(); SetPcmFormat(1000, 1); GetLength(); "
        "ReadBlock(1000) x4; CloseFile()";
    EXPECT_EQ(PasteFromFile(), S_OK);
    EXPECT_EQ(Private->Calls, calls);
    EXPECT_EQ(Dusoro->Calls, "");
    EXPECT_EQ(Events->Take(), "10% 20% 30% 40% 50% 15% 47% 78% 70% 80% 90% 100% 100% end");
    EXPECT_EQ(Positions(), "selected 500..2699 view 0..3100 of 3100");
    Control->Undo();
    Position->put_Selected(0);
    PasteFromFile();
    EXPECT_EQ(Positions(), "select 500..2699 view 0..3190 of 3190") << "nothing was selected";
}

TEST(PastingAndMixing, DoNothingWithoutSound) {
    struct {
        const char* What;
        void (*Prepare)(ControlWorld& world);
        bool Clip;
        LONG Error;
    } const cases[] = {
        {"a file that is refused", [](ControlWorld& w) { w.Private->OpenCode = -12; }, false, -12},
        {"a decoder that throws", [](ControlWorld& w) { w.Private->ThrowsInOpen = true; }, false,
         -13},
        {"a decoder that fails at once",
         [](ControlWorld& w) { w.Private->FailingRead = 1, w.Private->FailureCode = -17; }, false,
         -17},
        {"no companion", [](ControlWorld& w) { w.CompanionStatus = E_FAIL; }, false, 0},
        {"no clip", [](ControlWorld&) {}, true, 0},
        {"another file",
         [](ControlWorld& w) { w.System.Files->AddFile(ControlWorld::ClipFile, "text"); }, true, 0},
        {"six channels", [](ControlWorld& w) { w.SetClip(1000, 6, Ramp(60)); }, true, -13},
        {"no rate", [](ControlWorld& w) { w.SetClip(0, 1, Ramp(60)); }, true, -13},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.What);
        ControlWorld world;
        world.Start();
        world.OpenSound(Ramp(1000));
        world.Private->Source.Samples = Ramp(100);
        c.Prepare(world);
        for (const bool mix : {false, true}) {
            if (c.Clip)
                mix ? world.Control->Mix(50, 50) : world.Control->Paste();
            else
                mix ? world.MixFromFile(50, 50) : world.PasteFromFile();
            EXPECT_EQ(world.LastError(), c.Error);
            EXPECT_EQ(world.DocumentSamples(), Ramp(1000));
            EXPECT_FALSE(world.UndoEnabled());
            EXPECT_EQ(world.TempFiles().size(), 1u);
            EXPECT_EQ(world.System.Files->OpenFiles() + world.Status(), 0);
        }
    }
}

TEST_F(Pasting, AndMixingKeepWhatCameOfSoundThatBreaksOff) {
    OpenSound(Samples(1000));
    auto bytes = WorkFileOf(1000, 1, Samples(300));
    bytes.resize(58 + 400);
    System.Files->AddFile(ClipFile, bytes);
    Select(500, 600);
    Control->Paste();
    EXPECT_EQ(DocumentSamples().size(), 1100u);
    EXPECT_EQ(LastError(), -18);
    Control->Mix(100, 100);
    EXPECT_EQ(LastError(), -18);

    OpenSound(Samples(1000));
    Private->Source.Samples = Samples(2500);
    Private->FailingRead = 2;
    Select(500, 600);
    PasteFromFile();
    EXPECT_EQ(DocumentSamples().size(), 1900u);
    EXPECT_EQ(LastError(), -18);
}

using Mixing = Editing;

TEST_F(Mixing, AddsUpToTheEndOfEither) {
    const Samples document = {100, -100, 30000, -30000, 7, 7};
    struct {
        const char* What;
        float DocumentLevel, MaterialLevel;
        std::size_t From;
        Samples Clip, After;
    } const cases[] = {
        {"as they are", 100, 100, 0, {1, 2, 30000, -30000}, {101, -98, 32767, -32768, 7, 7}},
        {"half and half", 50, 50, 0, {101, -101, 30000}, {100, -100, 30000, -30000, 7, 7}},
        {"levels of 0", 0, 0, 2, {1, 1}, {100, -100, 0, 0, 7, 7}},
        {"turned over", -100, 0, 4, {0}, {100, -100, 30000, -30000, -7, 7}},
        {"beyond the document's end", 100, 100, 4, {1, 2, 3, 4}, {100, -100, 30000, -30000, 8, 9}},
        {"nothing", 100, 100, 0, {}, document},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.What);
        OpenSound(document);
        Position->put_StartSelect(static_cast<LONG>(c.From));
        SetClip(1000, 1, c.Clip);
        Control->Mix(c.DocumentLevel, c.MaterialLevel);
        EXPECT_EQ(DocumentSamples(), c.After);
        EXPECT_TRUE(UndoEnabled());
        Control->Undo();
        Private->Source.Samples = c.Clip;
        MixFromFile(c.DocumentLevel, c.MaterialLevel);
        // Fewer than three values of a companion's are the end.
        EXPECT_EQ(DocumentSamples(), c.Clip.size() < 3 ? document : c.After);
    }
}

TEST_F(Mixing, ReportsSecondsOfTheDocument) {
    OpenSound(Samples(4000, 100));
    SetClip(1000, 1, Samples(2500, 1));
    Position->put_StartSelect(1000);
    Events->Take();
    Control->Mix(100, 100);
    EXPECT_EQ(Events->Take(),
              "2% 5% 7% 10% 12% 15% 17% 20% 22% 25% 50% 75% 87% 90% 92% 95% 97% 100% 100% end");
    EXPECT_EQ(Positions(), "select 1000..3499 view 0..4000 of 4000");
    EXPECT_EQ(DocumentSamples(), Replaced(Samples(4000, 100), 1000, 3500, Samples(2500, 101)));
}

}  // namespace
}  // namespace mavrin2::tests
