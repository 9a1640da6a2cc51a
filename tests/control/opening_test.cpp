#include "automation/text.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using interfaces::FormatTypeConstants;

constexpr auto kNotSupported = static_cast<HRESULT>(0x80040304);

class Opening : public ControlTest {
protected:
    void Read(std::size_t values, LONG channels = 1) {
        Dusoro->Source.Samples = Ramp(values);
        Dusoro->Source.Channels = channels;
    }
    void ExpectNoDocument(std::size_t leftFiles = 0) {
        EXPECT_EQ(Positions(), "select 0..0 view 0..0 of 0");
        EXPECT_EQ(WorkFile(), "/tmp/private/");
        EXPECT_EQ(TempFiles().size(), leftFiles);
        EXPECT_EQ(System.Files->OpenFiles(), 0);
        EXPECT_EQ(Status(), 0);
    }
};

TEST_F(Opening, TakesWhatTheCompanionReads) {
    Read(45000, 2);
    std::int32_t statusInside = 0;
    Events->InEvent(3, [&] { statusInside = Status(); });
    EXPECT_EQ(Open("/sound.mp3", FormatTypeConstants::MP3), S_OK);
    EXPECT_EQ(Dusoro->Calls,
              "OpenSoundFile(/sound.mp3, 2, 1); GetErrorCode(); GetSourceFrequency(); "
              "GetFrequency(); GetChannels(); GetBitsPerSample(); GetLength(); GetFormatKind(); "
              "GetFormatText(); ReadBlock(20000) x3; CloseFile()");
    EXPECT_EQ(Events->Take(), "88% 99% 100% end");
    EXPECT_EQ(statusInside, 3);
    EXPECT_EQ(System.Files->Bytes(WorkFile()), WorkFileOf(1000, 2, Ramp(45000)));
    EXPECT_EQ(Positions(), "select 0..0 view 0..22500 of 22500");
    EXPECT_EQ(FormatString(), "Fake sound");
    EXPECT_FALSE(UndoEnabled());
    EXPECT_EQ(Status(), 0);
}

TEST_F(Opening, ReportsAgainstTheLengthThatWasClaimed) {
    struct {
        std::size_t Values;
        LONG Claimed;
        const char* Events;
    } const cases[] = {{1000, 2000, "15% 30% 45% 50% 100% end"},
                       {1000, 300, "99% 99% 99% 99% 100% end"},
                       {1000, 0, "99% 99% 99% 99% 100% end"},
                       {0, 1000, "100% end"}};
    Dusoro->Source.FramesPerRead = 300;
    for (const auto& c : cases) {
        Read(c.Values);
        Dusoro->Source.ClaimedFrames = c.Claimed;
        EXPECT_EQ(Open(), S_OK);
        EXPECT_EQ(Events->Take(), c.Events);
        EXPECT_EQ(System.Files->Bytes(WorkFile()), WorkFileOf(1000, 1, Ramp(c.Values)));
    }
    EXPECT_EQ(Positions(), "select 0..0 view 0..1 of 0");
}

TEST_F(Opening, ClosesWhatIsOpenFirst) {
    OpenThousand();
    Delete(0, 100);
    Dusoro->OpenCode = -12;
    EXPECT_EQ(Open(), static_cast<HRESULT>(0x80040303));
    EXPECT_EQ(Dusoro->Calls,
              "CloseFile(); OpenSoundFile(/sound.wav, 0, 1); GetErrorCode(); CloseFile()");
    ExpectNoDocument(2);
    EXPECT_EQ(FormatString(), "");
}

TEST_F(Opening, TellsKindsByTheEndOfTheName) {
    for (const auto& [name, wma] : {std::pair("/a.WMA", true), std::pair("/a.wma", true),
                                    std::pair("/a.wma.wav", false), std::pair("/wma", false)}) {
        Control->Close();
        Dusoro->Calls.clear();
        EXPECT_EQ(Open(name), S_OK);
        EXPECT_EQ(Dusoro->Calls.starts_with("SetWmaMode(1); OpenSoundFile("), wma) << name;
        EXPECT_EQ(Dusoro->Calls.starts_with("OpenSoundFile("), !wma) << name;
    }
}

TEST_F(Opening, KeepsWhatWasReadBeforeAStop) {
    Read(1000);
    Dusoro->Source.FramesPerRead = 300;
    Events->InEvent(2, [this] { Control->Stop(); });
    EXPECT_EQ(Open(), S_OK);
    EXPECT_EQ(Events->Take(), "30% 60% 100% end");
    EXPECT_EQ(DocumentSamples(), Ramp(600));
    EXPECT_EQ(Status(), 0);
}

TEST_F(Opening, RefusesFormatsThatNoDocumentHas) {
    struct {
        LONG Frequency, Channels;
    } const cases[] = {{0, 1}, {-8000, 2}, {8000, -1}, {8000, 6}};
    for (const auto& c : cases) {
        Dusoro->Source.Frequency = c.Frequency;
        Dusoro->Source.Channels = c.Channels;
        EXPECT_EQ(Open(), kNotSupported) << c.Frequency << " Hz, " << c.Channels << " channels";
        ExpectNoDocument();
    }
    Dusoro->Source.Channels = 1;
    Dusoro->ThrowsInOpen = true;
    EXPECT_EQ(Open(), kNotSupported) << "what escapes from a companion is such a format too";
    EXPECT_EQ(LastError(), -13);
    ExpectNoDocument();
    Dusoro->ThrowsInOpen = false;
    EXPECT_EQ(Open(), S_OK);
    EXPECT_EQ(LastError(), 0);
}

TEST_F(Opening, NeedsAFolderForTheWorkFile) {
    constexpr auto kFileAccess = static_cast<HRESULT>(0x80040309);
    System.Files->AddFolder("/protected");
    const auto expectNone = [&] {
        EXPECT_EQ(Open(), kFileAccess);
        EXPECT_EQ(LastError(), -18);
        EXPECT_EQ(Control->New(interfaces::FrequencyConstants{8000}, {}), S_OK) << "no channels";
        EXPECT_EQ(
            Control->New(interfaces::FrequencyConstants{8000}, interfaces::ChannelsConstants::MONO),
            kFileAccess);
        EXPECT_EQ(LastError(), -18);
        EXPECT_EQ(Positions(), "select 0..0 view 0..0 of 0");
        EXPECT_EQ(System.Files->Files().size(), 0u);
        EXPECT_EQ(System.Files->OpenFiles(), 0);
    };
    Control->put_TempDirectory(Bstr(std::string_view("/protected/")).Get());
    System.Files->Refuse("/protected");
    expectNone();
    End();
    System.Files->SetTemporaryFolder("");
    Start();
    expectNone();
    EXPECT_EQ(Events->Take(), "");
}

using Closing = ControlTest;

TEST_F(Closing, DropsTheDocumentOnce) {
    OpenThousand();
    Delete(0, 100);
    Control->BeginOperations();
    Events->Take();
    EXPECT_EQ(Control->Close(), S_OK);
    EXPECT_EQ(Control->Close(), S_OK);
    EXPECT_EQ(Dusoro->Calls, "CloseFile()");
    EXPECT_EQ(Events->Take(), "");
    EXPECT_EQ(Positions(), "select 0..0 view 0..0 of 0");
    EXPECT_EQ(FormatString(), "");
    EXPECT_FALSE(UndoEnabled() || RedoEnabled());
    EXPECT_EQ(TempFiles().size(), 2u) << "files stay until the history ends";

    OpenThousand();
    Delete(0, 100);
    Delete(0, 100);
    Control->Undo();
    EXPECT_EQ(DocumentSamples().size(), 900u) << "the batch has ended too";
}

TEST_F(Closing, InsideTheFirstLoadLeavesNoFormat) {
    Dusoro->Source.Samples = Ramp(1000);
    Events->InEvent(1, [this] { Control->Close(); });
    EXPECT_EQ(Open(), S_OK);
    EXPECT_EQ(FormatString(), "");
}

using NewDocument = ControlTest;

TEST_F(NewDocument, IsAnEmptyWorkFileOfTheFormat) {
    struct {
        LONG Frequency, Channels;
        const char* Text;
    } const cases[] = {{44100, 2, "PCM 44100 Hz; 16 bit; stereo"},
                       {8000, 1, "PCM 8000 Hz; 16 bit; mono"},
                       {12345, 1, "PCM 12345 Hz; 16 bit; mono"}};
    std::size_t files = 0;
    for (const auto& c : cases) {
        EXPECT_EQ(Control->New(interfaces::FrequencyConstants{c.Frequency},
                               interfaces::ChannelsConstants{c.Channels}),
                  S_OK);
        EXPECT_EQ(System.Files->Bytes(WorkFile()),
                  WorkFileOf(static_cast<std::uint32_t>(c.Frequency),
                             static_cast<std::uint16_t>(c.Channels), {}));
        EXPECT_EQ(FormatString(), c.Text);
        EXPECT_EQ(Positions(), "select 0..0 view 0..1 of 0");
        EXPECT_EQ(Events->Take(), "end");
        EXPECT_EQ(TempFiles().size(), ++files) << "the one before stays until the history ends";
    }
    EXPECT_FALSE(UndoEnabled());
}

TEST_F(NewDocument, HasAFormatThatDocumentsHave) {
    OpenThousand();
    for (const auto& [frequency, channels] :
         {std::pair(0, 1), std::pair(-8000, 2), std::pair(8000, 0), std::pair(8000, 3)}) {
        Control->New(interfaces::FrequencyConstants{frequency},
                     interfaces::ChannelsConstants{channels});
        EXPECT_EQ(LastError(), -13);
        EXPECT_EQ(DocumentSamples(), Ramp(1000)) << "nothing else changes";
    }
    EXPECT_EQ(Events->Take(), "");
}

}  // namespace
}  // namespace mavrin2::tests
