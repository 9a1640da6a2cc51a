#include "tests/control/control_test.h"
#include "tests/support/com_fakes.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;
using interfaces::IMavrin2;

class Lifetime : public testing::Test, protected ControlWorld {};

TEST_F(Lifetime, BeginsWithTheCompanionsFirstSetting) {
    const auto control = server::CMavrin2::Make(Environment());
    EXPECT_EQ(Dusoro->Calls, "SetFormatVOX(8000)");
    EXPECT_EQ(Ontiva->Calls, "InfoSwitch(1)");
    EXPECT_TRUE(System.Errors->Messages().empty());
}

TEST_F(Lifetime, DoesNotBeginWithoutItsCompanion) {
    CompanionStatus = REGDB_E_CLASSNOTREG;
    System.Files->AddFile("/tmp/private/nct1.tmp", "left by a crash");
    for (const bool whole : {false, true}) {
        void* object = this;
        EXPECT_EQ(server::CMavrin2::Create(nullptr, whole ? IID_IUnknown : interfaces::IID_IMavrin2,
                                           &object, Environment()),
                  REGDB_E_CLASSNOTREG);
        EXPECT_EQ(object, nullptr);
    }
    const platform::RecordingErrorDialog::Message message{"KovMavrin",
                                                          "KovDusoro2 is not registered."};
    EXPECT_THAT(System.Errors->Messages(), testing::ElementsAre(message, message));
    EXPECT_EQ(System.Locks.Alive(), 0);
    EXPECT_EQ(TempFiles().size(), 1u) << "it did not come to cleaning up";
    EXPECT_EQ(automation::CanUnloadNow(), S_FALSE) << "the companion lives";
    Dusoro.Reset();
    Private.Reset();
    Lame.Reset();
    Kestrin.Reset();
    Ontiva.Reset();
    Pindle.Reset();
    Velto.Reset();
    Rimbal.Reset();
    Events.Reset();
    EXPECT_EQ(automation::CanUnloadNow(), S_OK);
}

TEST_F(Lifetime, DoesNotBeginWithoutTheOthersEither) {
    const std::pair<CLSID, const char*> cases[] = {
        {contracts::CLSID_KovOntiva, "KovOntiva is not registered."},
        {contracts::CLSID_KovVelto, "KovVelto is not registered."},
        {contracts::CLSID_KovRimbal2, "KovRimbal2 is not registered."},
        {contracts::CLSID_KovKestrin, "KovKestrin is not registered."},
        {contracts::CLSID_KovPindle, "KovPindle is not registered."}};
    for (const auto& [id, text] : cases) {
        MissingCompanion = id;
        ComPtr<IMavrin2> control;
        EXPECT_EQ(server::CMavrin2::Create(nullptr, interfaces::IID_IMavrin2, control.PutVoid(),
                                           Environment()),
                  REGDB_E_CLASSNOTREG);
        EXPECT_EQ(System.Errors->Messages().back().Text, text);
    }
}

TEST_F(Lifetime, RemovesWhatACrashLeftWhenNoOtherInstanceLives) {
    System.Files->AddFile("/tmp/private/nct12ab.tmp", "left by a crash");
    System.Files->AddFile("/tmp/private/nct12ab.dat", "another program's");
    {
        const auto other = System.Locks.New();
        Start();
        End();
        EXPECT_EQ(TempFiles().size(), 1u);
    }
    Start();
    EXPECT_TRUE(TempFiles().empty());
    EXPECT_TRUE(System.Files->Exists("/tmp/private/nct12ab.dat"));
}

TEST_F(Lifetime, OfTwoControlsDoesNotTouchEachOthersFiles) {
    Start();
    OpenSound(Ramp(1000));
    ControlWorld second;
    second.System = System;
    second.Start();
    second.OpenSound(Ramp(500));
    EXPECT_EQ(TempFiles().size(), 2u);
    End();
    EXPECT_EQ(second.DocumentSamples(), Ramp(500));
    EXPECT_EQ(TempFiles().size(), 1u);
}

TEST_F(Lifetime, EndsWithEveryTemporaryFile) {
    Start();
    OpenSound(Ramp(1000));
    for (int i = 0; i < 3; ++i) {
        Select(0, 100);
        Control->DeleteSelect();
    }
    Control->Undo();
    NewSound();
    Open();
    Select(0, 10);
    Control->DeleteSelect();
    Control->Undo();
    EXPECT_EQ(TempFiles().size(), 7u);
    End();
    EXPECT_TRUE(System.Files->Files().empty());
    EXPECT_EQ(System.Locks.Alive(), 0);
}

TEST_F(Lifetime, LeavesSubObjectsThatAreKeptDetached) {
    Start();
    OpenSound(Ramp(1000));
    Control.Reset();
    EXPECT_EQ(System.Locks.Alive(), 0);
    EXPECT_EQ(Positions(), "select 0..0 view 0..0 of 0");
    EXPECT_EQ(FormatString(), "");
    EXPECT_EQ(Position->put_StartSelect(5), S_OK);
    EXPECT_EQ(Position->put_CurrentPosition(5), S_OK);
    EXPECT_EQ(FileInfo->put_SaveExtraInfoEnabled(0), S_OK);
    EXPECT_EQ(TempFiles().size(), 1u) << "the history is the position's";
    Position.Reset();
    EXPECT_TRUE(TempFiles().empty());
}

TEST_F(Lifetime, OfObjectsThatAHostMakesAloneIsWithoutADocument) {
    for (const auto& entry : automation::ThisModule().Classes) {
        if (entry.Control) continue;
        ComPtr<IDispatch> object;
        EXPECT_EQ(entry.Create(nullptr, IID_IDispatch, object.PutVoid()), S_OK) << entry.ProgId;
        if (auto position = object.As<interfaces::IMavrin2Position>()) Position = position;
        if (auto fileInfo = object.As<interfaces::IMavrin2FileInfo>()) FileInfo = fileInfo;
    }
    ASSERT_TRUE(Position && FileInfo);
    EXPECT_EQ(Positions(), "select 0..0 view 0..0 of 0");
    EXPECT_EQ(Position->put_EndView(5), S_OK);
    LONG samples = 0;
    EXPECT_EQ(Position->SecToSamples(1000, &samples), S_OK);
    EXPECT_EQ(samples, 8000);
    EXPECT_EQ(FormatString(), "");
    EXPECT_EQ(static_cast<int>(Got(*FileInfo, &interfaces::IMavrin2FileInfo::get_Channels)), 0);
}

TEST_F(Lifetime, IsThatOfTheObjectThatAggregatesIt) {
    FakeOuter outer;
    void* refused = this;
    EXPECT_EQ(server::CMavrin2::Create(&outer, interfaces::IID_IMavrin2, &refused, Environment()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(refused, nullptr);
    ASSERT_EQ(server::CMavrin2::Create(&outer, IID_IUnknown, outer.Inner.PutVoid(), Environment()),
              S_OK);
    EXPECT_EQ(outer.References, 0u) << "the inner object has no reference to the outer one";

    Control = outer.Inner.As<IMavrin2>();
    Control->get_Position(Position.Put());
    Control->get_FileInfo(FileInfo.Put());
    Events->Connect(&outer);
    for (const auto& part :
         {Control.As<IUnknown>(), Control.As<IConnectionPointContainer>().As<IUnknown>(),
          Control.As<ISupportErrorInfo>().As<IUnknown>(),
          Control.As<IProvideClassInfo2>().As<IUnknown>()})
        EXPECT_EQ(part.Get(), &outer);
    OpenSound(Ramp(1000));
    Select(500, 600);
    ULONG inside = 0;
    Events->InEvent(1, [&] {
        Control.Reset();
        inside = outer.References;
    });
    IMavrin2* const control = Control.Get();
    control->DeleteSelect();
    EXPECT_GT(inside, 0u) << "held while it runs";
    EXPECT_EQ(outer.References, 0u);
    EXPECT_EQ(TempFiles().size(), 2u);
    End();
    outer.Inner.Reset();
    EXPECT_TRUE(TempFiles().empty());
    EXPECT_EQ(outer.References, 0u);
}

}  // namespace
}  // namespace mavrin2::tests
