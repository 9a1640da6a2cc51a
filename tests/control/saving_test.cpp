#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::FormatTypeConstants;
using Output = FakeDusoro::Output;
using Blocks = std::vector<std::size_t>;

constexpr auto kFileAccess = static_cast<HRESULT>(0x80040309);

class Saving : public ControlTest {
protected:
    // Two blocks of five seconds and a part.
    Saving() { OpenSound(samples_); }

    void ExpectDocumentAsBefore() {
        EXPECT_EQ(DocumentSamples(), samples_);
        EXPECT_FALSE(UndoEnabled());
        EXPECT_EQ(Status(), 0);
        EXPECT_EQ(System.Files->OpenFiles(), 0);
    }

    const Samples samples_ = Ramp(12000);
};

TEST_F(Saving, HandsTheDocumentToTheCompanion) {
    std::string statuses;
    for (int event = 1; event <= 5; ++event) {
        Events->InEvent(event, [&] { statuses += std::to_string(Status()); });
        Dusoro->Calls.clear();
        EXPECT_EQ(Save("/out.mp3", 0, FormatTypeConstants::MP3), S_OK);
        EXPECT_EQ(Dusoro->Calls,
                  "SetPcmFormat(1000, 1); CreateSoundFile(/out.mp3, 2); GetErrorCode(); "
                  "GetFrequency(); SetPcmFormat(1000, 1); WriteBlock() x3; GetFormatText(); "
                  "CloseFile()");
        EXPECT_EQ(Events->Take(), "0% 41% 83% 100% end");
    }
    EXPECT_EQ(statuses, "44444");
    EXPECT_EQ(Dusoro->WrittenBlocks, Blocks({5000, 5000, 2000}));
    EXPECT_EQ(Dusoro->Written, samples_);
    EXPECT_EQ(FormatString(), "Fake output");
    ExpectDocumentAsBefore();
}

TEST_F(Saving, WritesWhatIsAskedFor) {
    struct {
        const char* What;
        std::int16_t Selected;
        LONG First, End;
        Samples Written;
        const char* Events;
    } const cases[] = {
        {"the selection", -1, 3000, 9000, Ramp(6000, 3000), "0% 83% 100% end"},
        {"the selection, by any number", 1, 11999, 12000, Ramp(1, 11999), "0% 100% end"},
        {"an empty selection", -1, 3000, 3000, {}, "0% end"},
        {"all of it, though something is selected", 0, 3000, 9000, samples_, "0% 41% 83% 100% end"},
        {"all of it, with the progress of a selection", 763, 3000, 9000, samples_,
         "0% 83% 100% 100% end"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.What);
        Select(c.First, c.End);
        EXPECT_EQ(Save("/out.wav", c.Selected), S_OK);
        EXPECT_EQ(Dusoro->Written, c.Written);
        EXPECT_EQ(Events->Take(), c.Events);
        EXPECT_EQ(Dusoro->State, Output::Complete);
    }
    ExpectDocumentAsBefore();
}

TEST_F(Saving, CountsBlocksInValuesWhateverTheChannels) {
    OpenSound(Ramp(10000), 2);
    Select(1000, 2000);
    EXPECT_EQ(Save("/out.wav", -1), S_OK);
    EXPECT_EQ(Dusoro->Written, Ramp(2000, 2000));
    EXPECT_EQ(Save(), S_OK);
    EXPECT_EQ(Dusoro->WrittenBlocks, Blocks({5000, 5000}));
    NewSound();
    Events->Take();
    EXPECT_EQ(Save(), S_OK);
    EXPECT_EQ(Events->Take(), "0% end");
    EXPECT_TRUE(Dusoro->WrittenBlocks.empty());
    EXPECT_EQ(Dusoro->State, Output::Complete);
    Control->Close();
    Dusoro->Calls.clear();
    EXPECT_EQ(Save(), S_OK);
    EXPECT_EQ(Dusoro->Calls + Events->Take(), "") << "without a document";
}

TEST_F(Saving, StaysInRangeWhenTheSelectionEndsBeforeItsStart) {
    Delete(6000, 6001);
    Events->Take();
    EXPECT_EQ(Save("/out.wav", 763), S_OK);
    EXPECT_EQ(Events->Take(), "0% 0% 0% 0% end");
    EXPECT_EQ(Save("/out.wav", -1), S_OK);
    EXPECT_TRUE(Dusoro->Written.empty());
}

TEST_F(Saving, CutsBlocksIntoPiecesForWma) {
    struct {
        const char* Name;
        FormatTypeConstants Type;
        bool Mode, Pieces;
    } const cases[] = {{"/out.Wma", FormatTypeConstants::DEFAULT, true, true},
                       {"/out.wma", FormatTypeConstants::WMA, true, true},
                       {"/out.wav", FormatTypeConstants::WMA, false, true},
                       {"/out.wma", FormatTypeConstants::WAV, true, false},
                       {"/out.wav", FormatTypeConstants::DEFAULT, false, false}};
    Dusoro->Source.Frequency = 1001;  // pieces of 500 values, blocks of 5005
    const Samples samples = Ramp(5600);
    OpenSound(samples);
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Name) + " " + std::to_string(static_cast<int>(c.Type)));
        Dusoro->Calls.clear();
        EXPECT_EQ(Save(c.Name, 0, c.Type), S_OK);
        EXPECT_EQ(Dusoro->Calls.starts_with("SetWmaMode(1); SetPcmFormat(1001, 1)"), c.Mode);
        Blocks pieces(10, 500);
        pieces.insert(pieces.end(), {5, 500, 95});
        EXPECT_EQ(Dusoro->WrittenBlocks, c.Pieces ? pieces : Blocks({5005, 595}));
        EXPECT_EQ(Dusoro->Written, samples);
    }
}

TEST_F(Saving, NeverWritesOverItsOwnWorkFileOrToADisc) {
    for (const std::string& name : {WorkFile().string(), std::string("/music/Track01.Cda")}) {
        EXPECT_EQ(Save(name), S_OK);
        EXPECT_EQ(Events->Take(), "end");
    }
    EXPECT_EQ(Dusoro->Calls, "");
    EXPECT_EQ(FormatString(), "Fake sound");
    EXPECT_EQ(LastError(), 0);
    ExpectDocumentAsBefore();
}

TEST_F(Saving, IsCompleteWithWhatWasWrittenWhenStopped) {
    struct {
        int Event;
        const char* Events;
        std::size_t Blocks;
    } const cases[] = {{1, "0% end", 1},
                       {2, "0% 41% end", 2},
                       {3, "0% 41% 83% end", 3},
                       {4, "0% 41% 83% 100% end", 3},
                       {5, "0% 41% 83% 100% end", 3}};
    for (const auto& c : cases) {
        Events->InEvent(c.Event, [this] { Control->Stop(); });
        EXPECT_EQ(Save(), S_OK);
        // The block after the event is still written.
        EXPECT_EQ(Dusoro->WrittenBlocks.size(), c.Blocks);
        EXPECT_EQ(Events->Take(), c.Events);
        EXPECT_EQ(Dusoro->State, Output::Complete);
        EXPECT_EQ(FormatString(), "Fake output");
        ExpectDocumentAsBefore();
    }
}

TEST_F(Saving, TellsWhyAFileCannotBeCreated) {
    Dusoro->CreateCode = -18;
    EXPECT_EQ(Save(), kFileAccess);
    EXPECT_EQ(FormatString(), "Fake sound");
    EXPECT_EQ(Dusoro->Calls,
              "SetPcmFormat(1000, 1); CreateSoundFile(/out.wav, 0); GetErrorCode(); "
              "GetFormatText(); CloseFile()");
    EXPECT_EQ(Events->Take(), "");
    EXPECT_EQ(LastError(), -18);
    ExpectDocumentAsBefore();
    Dusoro->CreateCode = 0;
    EXPECT_EQ(Save(), S_OK);
    EXPECT_EQ(LastError(), 0);
}

TEST_F(Saving, FailsWithTheReasonOfABlockOrAnEndThatCannotBeWritten) {
    struct {
        int FailingWrite;
        bool FailingClose;
        LONG Reason;
        HRESULT Status;
        const char* Events;
    } const cases[] = {
        {1, false, -18, kFileAccess, "0%"},
        {3, false, -11, static_cast<HRESULT>(0x80040302), "0% 41% 83%"},
        {2, false, 0, kFileAccess, "0% 41%"},
        {0, true, -17, static_cast<HRESULT>(0x80040308), "0% 41% 83% 100%"},
        {0, true, 0, kFileAccess, "0% 41% 83% 100%"},
    };
    for (const auto& c : cases) {
        Dusoro->FailingWrite = c.FailingWrite;
        Dusoro->FailingClose = c.FailingClose;
        Dusoro->FailureCode = c.Reason;
        EXPECT_EQ(Save(), c.Status);
        EXPECT_EQ(Events->Take(), c.Events);
        EXPECT_EQ(LastError(), c.Reason ? c.Reason : -18);
        EXPECT_EQ(Dusoro->State, Output::GivenUp);
        EXPECT_EQ(FormatString(), "Fake sound");
        ExpectDocumentAsBefore();
    }
    Dusoro->FailingClose = false;
    EXPECT_EQ(Save(), S_OK);
    EXPECT_EQ(Dusoro->State, Output::Complete);
}

}  // namespace
}  // namespace mavrin2::tests
