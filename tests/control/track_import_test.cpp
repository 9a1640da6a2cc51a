// Tracks of CDs as documents.

#include "automation/text.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

class TrackImportTest : public ControlTest {
protected:
    TrackImportTest() { System.Files->SetCdDrive("/cd"); }
};

TEST_F(TrackImportTest, ReadsTheTrackThatTheNameTells) {
    Pindle->Drives = {"/other", "/cd", "/cd", "/last"};
    Pindle->Tracks = {{}, Ramp(2), Ramp(250)};
    Pindle->OnBlock = [&] {
        EXPECT_EQ(Status(), 3);
        return 0;
    };
    EXPECT_EQ(Open("/cd/TRACK003.CDA"), S_OK);
    EXPECT_EQ(Pindle->Calls,
              "Init, DriveNum 1, DriveNum 2, DriveNum 3, DriveNum 4, DriveNum 3, OpenDrive, "
              "ReadMode 0, TrackIndex 2, Prepare, StartReading 0, Read 26, Read 26, Read 26, "
              "Read 26, StopReading, Close");
    EXPECT_EQ(Dusoro->Calls, "SetFormatPCM(44100, 2, 16); GetFormatText()");
    EXPECT_TRUE(Kestrin->Calls.ends_with("Rate(44100)"));
    EXPECT_EQ(Events->Take(), "40% 80% 100% 100% end");
    EXPECT_EQ(DocumentSamples(), Ramp(250));
    EXPECT_EQ(Positions(), "select 0..0 view 0..125 of 125");
    EXPECT_EQ(static_cast<int>(Got(*FileInfo, &interfaces::IMavrin2FileInfo::get_Frequency)),
              44100);
    EXPECT_EQ(static_cast<int>(Got(*FileInfo, &interfaces::IMavrin2FileInfo::get_Channels)), 2);
    EXPECT_EQ(FormatString(), "Fake sound");
    EXPECT_EQ(Status(), 0);
    EXPECT_FALSE(UndoEnabled());
}

TEST_F(TrackImportTest, ReadsFromTheFirstDriveWhenNoneHasTheName) {
    Pindle->Drives = {"/media/a", "/media/b"};
    EXPECT_EQ(OpenTrack(Ramp(10)), S_OK);
    EXPECT_THAT(Pindle->Calls, testing::HasSubstr("DriveNum 2, DriveNum 1, OpenDrive"));
}

TEST_F(TrackImportTest, FailsOnADriveThatIsNotForDiscs) {
    EXPECT_EQ(Open("/music/Track07.cda"), static_cast<HRESULT>(0x80040303));
    EXPECT_EQ(LastError(), -12);
    EXPECT_EQ(Pindle->Calls, "");
    EXPECT_EQ(Events->Take(), "");
    EXPECT_FALSE(History().Current());
}

TEST_F(TrackImportTest, OpensATrackThatCannotBeReadAsNothing) {
    Pindle->Tracks = {Ramp(10)};
    for (const auto& [name, index] :
         {std::pair("/cd/Track02.cda", "1"), std::pair("/cd/Track00.cda", "-1"),
          std::pair("/cd/Track.cda", "-1"), std::pair("/cd/a.cda", "-1"),
          std::pair("/cd/Track99999999999.cda", "-1")}) {
        Pindle->Calls.clear();
        OpenThousand();
        EXPECT_EQ(Open(name), S_OK) << name;
        EXPECT_TRUE(
            Pindle->Calls.ends_with(std::string("TrackIndex ") + index + ", Prepare, Close"))
            << Pindle->Calls;
        EXPECT_EQ(Events->Take(), "end");
        EXPECT_EQ(LastError(), 0);
        EXPECT_FALSE(History().Current());
    }
}

TEST_F(TrackImportTest, AsksAgainAndEndsAfterTenFailures) {
    int failures = 0;
    Pindle->OnBlock = [&] { return ++failures <= 9 ? 1 : 0; };
    OpenTrack(Ramp(200));
    EXPECT_EQ(DocumentSamples(), Ramp(200)) << "nine are forgiven";
    int blocks = 0;
    Pindle->OnBlock = [&] { return ++blocks == 1 ? 0 : 1; };
    OpenTrack(Ramp(200));
    EXPECT_EQ(blocks, 11);
    EXPECT_EQ(DocumentSamples(), Ramp(100)) << "what was read";
    EXPECT_TRUE(Pindle->Calls.ends_with("StopReading, Close"));
}

TEST_F(TrackImportTest, KeepsWhatWasReadBeforeAStop) {
    for (int event = 1; event <= 4; ++event) {
        Events->InEvent(event, [&] { Control->Stop(); });
        OpenTrack(Ramp(300));
        EXPECT_EQ(DocumentSamples().size(), std::min(event, 3) * 100u);
        EXPECT_FALSE(Pindle->Open);
        EXPECT_EQ(Status(), 0);
    }
}

TEST_F(TrackImportTest, PassesOnTheProgressOfTheGrabber) {
    Pindle->FireProgress(40);
    EXPECT_EQ(Events->Take(), "40%");
    // A host closes from inside it, or opens another track.
    for (const bool opens : {false, true}) {
        int block = 0;
        Pindle->OnBlock = [&]() -> LONG {
            if (++block == 2) Pindle->FireProgress(50);
            return 0;
        };
        Events->InEvent(2, [&] {
            Control->Close();
            if (opens) OpenTrack(Ramp(30));
        });
        OpenTrack(Ramp(300));
        EXPECT_EQ(History().Current() != nullptr, opens);
        EXPECT_FALSE(Pindle->Open);
        Control->Close();
    }
    End();
    Pindle->FireProgress(60);
}

}  // namespace
}  // namespace mavrin2::tests
