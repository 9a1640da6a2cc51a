#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

class ClipboardExchange : public ControlTest {
protected:
    static constexpr const char* Incoming = "/tmp/private/KovClipBoardWindow.wav";

    std::vector<std::byte> Offered() {
        const auto sound = System.Clipboard->Open();
        if (!sound) return {};
        std::vector<std::byte> bytes(static_cast<std::size_t>(sound->Length().value_or(0)));
        sound->Read(0, bytes);
        return bytes;
    }
};

TEST_F(ClipboardExchange, OffersTheClipFileToOtherPrograms) {
    EXPECT_EQ(Control->CopyToClipboard(), S_OK);
    EXPECT_EQ(Offered().size(), 0u) << "no document";
    OpenThousand();
    Select(100, 300);
    EXPECT_EQ(Control->CopyToClipboard(), S_OK);
    EXPECT_EQ(Events->Take(), "50% 100% end");
    EXPECT_EQ(Offered(), WorkFileOf(1000, 1, Ramp(200, 100)));
    EXPECT_EQ(Status(), 0);

    System.Clipboard->Clear();
    Position->put_Selected(0);
    Control->CopyToClipboard();
    EXPECT_EQ(Offered(), WorkFileOf(1000, 1, Ramp(200, 100))) << "that of the earlier copy";

    System.Clipboard->Refuse(true);
    Control->CopyToClipboard();
    const platform::RecordingErrorDialog::Message message{"KovMavrin",
                                                          "Can't open clipboard window"};
    EXPECT_THAT(System.Errors->Messages(), testing::ElementsAre(message));
}

TEST_F(ClipboardExchange, PastesTheSoundOfOtherPrograms) {
    OpenThousand();
    Control->PasteFromClipboard();
    EXPECT_EQ(DocumentSamples(), Ramp(1000)) << "without sound there";
    EXPECT_EQ(LastError(), 0);

    System.Clipboard->SetContent("a WAVE file");
    Private->Source.Samples = Ramp(50, 5000);
    Select(0, 1000);
    Control->PasteFromClipboard();
    EXPECT_EQ(DocumentSamples().size(), 50u);
    EXPECT_EQ(System.Files->Bytes(Incoming)->size(), 11u);
    EXPECT_NE(Private->Calls.find("KovClipBoardWindow.wav"), std::string::npos);

    System.Files->SetFreeSpace(5);
    Control->Undo();
    Control->PasteFromClipboard();
    EXPECT_EQ(LastError(), -18);
    EXPECT_FALSE(System.Files->Exists(Incoming)) << "no half of a file";
    EXPECT_EQ(DocumentSamples(), Ramp(1000));
}

TEST_F(ClipboardExchange, DoesNothingWhereAnEventHasStartedSomethingElse) {
    OpenThousand();
    Select(100, 300);
    Events->InEvent(1, [&] { Control->Close(); });
    Control->CopyToClipboard();
    EXPECT_EQ(Offered().size(), 0u);
    EXPECT_EQ(Status(), 0);
}

}  // namespace
}  // namespace mavrin2::tests
