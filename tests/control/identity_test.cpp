// What the control and its objects say of themselves, and what late binding makes of it.

#include <set>

#include "automation/text.h"
#include "control/interfaces/events.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"
#include "tests/automation/late_call.h"
#include "tests/control/control_test.h"
#include "tests/support/scratch_registry.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::InterfaceDescription;
using automation::MemberPlan;

TEST(Descriptions, AgreeWithTheirPlanAndVirtualTable) {
    // Building them compares both.
    const auto& library = interfaces::ControlLibrary();
    EXPECT_EQ(std::string(library.Name), "KovMAVRIN2Lib");
    EXPECT_EQ(library.Interfaces.size(), 7u);
    for (const auto& make : library.Interfaces) {
        const InterfaceDescription& description = make();
        EXPECT_FALSE(description.Members.empty());
        for (const auto& member : description.Members)
            EXPECT_STRNE(member.Help, "") << member.Name;
    }
    contracts::DusoroLibrary().Interfaces.front()();
    struct {
        const InterfaceDescription& Description;
        const char* Name;
        DISPID Id;
    } const published[] = {
        {automation::DescriptionOf<interfaces::IMavrin2FileInfo>(), "SaveExtraInfoEnabled", 30},
        {automation::DescriptionOf<interfaces::IMavrin2FileInfo>(), "Frequency", 5},
        {automation::DescriptionOf<interfaces::IMavrin2Channel>(), "Operation", 4},
        {automation::DescriptionOf<interfaces::IMavrin2Colors>(), "RangeMarkerBackground", 17},
        {automation::DescriptionOf<interfaces::IMavrin2Scale>(), "Orientation", 5},
        {automation::DescriptionOf<interfaces::IMavrin2>(), "SaveWaveImage", 32},
        {automation::DescriptionOf<interfaces::IMavrin2>(), "TypeView", 125}};
    for (const auto& [description, name, id] : published)
        EXPECT_EQ(description.Find(std::string_view(name))->Id, id);
}

TEST(Descriptions, PlanEveryMemberOnce) {
    namespace plan = interfaces::plan;
    for (const MemberPlan* one :
         {&plan::Mavrin2, &plan::Mavrin2Events, &plan::Channel, &plan::Colors, &plan::Device,
          &plan::DeviceLine, &plan::FileInfo, &plan::LameEnc, &plan::Markers, &plan::Position,
          &plan::Recorder, &plan::Scale, &plan::FileFormat, &plan::Transform}) {
        std::set<DISPID> ids;
        std::set<std::string> names;
        for (const auto& member : *one) {
            EXPECT_TRUE(ids.insert(member.Id).second) << member.Name;
            EXPECT_TRUE(names.insert(automation::AsciiLower(member.Name)).second) << member.Name;
        }
    }
}

TEST(Descriptions, GiveEveryIdentifierOnce) {
    std::set<std::string> seen;
    const auto fresh = [&](const GUID& id) {
        return seen.insert(std::string(reinterpret_cast<const char*>(&id), sizeof id)).second;
    };
    // The companion's library shares its enumerations with the control's.
    for (const auto* library : {&interfaces::ControlLibrary(), &contracts::DusoroLibrary()}) {
        EXPECT_TRUE(fresh(library->Id));
        for (const auto& one : library->Classes)
            EXPECT_TRUE(fresh(one.Id)) << one.Name;
        for (const auto& one : library->Interfaces)
            EXPECT_TRUE(fresh(one().Id)) << one().Name;
    }
    for (const auto& one : interfaces::ControlLibrary().Enumerations)
        EXPECT_TRUE(fresh(one().Id)) << one().Name;
}

class Identity : public ControlTest {
protected:
    template <class Interface>
    bool SupportsErrors(Interface& object, const IID& iid) {
        return ComPtr<Interface>(&object)
                   .template As<ISupportErrorInfo>()
                   ->InterfaceSupportsErrorInfo(iid) == S_OK;
    }
};

TEST_F(Identity, HasRichErrorsThroughTheOwnInterfaceOnly) {
    EXPECT_TRUE(SupportsErrors(*Control, interfaces::IID_IMavrin2));
    EXPECT_FALSE(SupportsErrors(*Control, IID_IDispatch));
    EXPECT_FALSE(SupportsErrors(*Control, interfaces::IID_IMavrin2Position));
    EXPECT_TRUE(SupportsErrors(*Position, interfaces::IID_IMavrin2Position));
    EXPECT_FALSE(SupportsErrors(*Position, interfaces::IID_IMavrin2));
    EXPECT_TRUE(SupportsErrors(*FileInfo, interfaces::IID_IMavrin2FileInfo));
}

TEST_F(Identity, HasPointsForItsEventsAndForPropertyNotifications) {
    const auto container = Control.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(interfaces::DIID_IMavrin2Events, point.Put()), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(IID_IPropertyNotifySink, point.Put()), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, point.Put()), CONNECT_E_NOCONNECTION);
    // Connected twice, heard twice.
    Events->Connect(Control.Get());
    NewSound();
    EXPECT_EQ(Events->Take(), "end end");
}

TEST_F(Identity, TellsItsClassAndDefaultEvents) {
    const auto information = Control.As<IProvideClassInfo2>();
    GUID events{};
    EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualGUID(events, interfaces::DIID_IMavrin2Events));
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(information->GetClassInfo(type.Put()), S_OK);
    Bstr name;
    type->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr);
    EXPECT_EQ(name.Utf8(), "Mavrin2");
    EXPECT_FALSE(Position.As<IProvideClassInfo>());
}

TEST_F(Identity, FailsWithAStatusAndADescriptionForEveryCode) {
    const ScratchRegistry registry;
    ASSERT_EQ(automation::RegisterModule(automation::ThisModule()), S_OK);
    struct {
        LONG Code;
        std::uint32_t Status;
        const char* Description;
    } const cases[] = {{-10, 0x80040301, "Busy error."},
                       {-11, 0x80040302, "Exceeded available memory."},
                       {-12, 0x80040303, "FormatFile error."},
                       {-13, 0x80040304, "Format is not supported."},
                       {-14, 0x80040305, "Output Driver error."},
                       {-15, 0x80040306, "Input Driver error."},
                       {-16, 0x80040307, "Mixer Driver error."},
                       {-17, 0x80040308, "ACM Driver error."},
                       {-18, 0x80040309, "File Access error."},
                       {-19, 0x8004030A, "Invalid operation."},
                       {-20, 0x8004030B, "Invalid parameter(argument)."},
                       {-21, 0x8004030C, "Aspi Driver error."},
                       {-22, 0x8004030D, "Control(object) isn't installed."},
                       {-23, 0x8004030E, "Index is out of range."},
                       {-24, 0x8004030F, "The stream is closed or unavailable."},
                       {-40, 0x80040300, "Unexpected error."},
                       {-99, 0x80040300, "Unexpected error."},
                       {1, 0x80040300, "Unexpected error."}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Code);
        Dusoro->OpenCode = c.Code;
        EXPECT_EQ(static_cast<std::uint32_t>(Open()), c.Status);
        EXPECT_EQ(LastError(), c.Code);
        ComPtr<IErrorInfo> error;
        ASSERT_EQ(GetErrorInfo(0, error.Put()), S_OK);
        GUID iid{};
        Bstr source;
        Bstr description;
        error->GetGUID(&iid);
        error->GetSource(source.Put());
        error->GetDescription(description.Put());
        EXPECT_TRUE(IsEqualGUID(iid, interfaces::IID_IMavrin2));
        EXPECT_EQ(source.Utf8(), "KovMavrin2.Mavrin2.2");
        EXPECT_EQ(description.Utf8(), c.Description);
    }
    EXPECT_EQ(Events->Take(), "");
    Dusoro->OpenCode = 0;
    EXPECT_EQ(Open(), S_OK);
    ComPtr<IErrorInfo> none;
    EXPECT_EQ(GetErrorInfo(0, none.Put()), S_FALSE);
}

TEST_F(Identity, IsServedByLateBindingWithItsDefaults) {
    const std::vector<Value> none;
    Dusoro->Source.Samples = Ramp(12000);
    EXPECT_EQ(LateCall(*Control, "open", DISPATCH_METHOD, {"/sound.wav"}).Status, S_OK);
    EXPECT_TRUE(Dusoro->Calls.starts_with("OpenSoundFile(/sound.wav, 0, 1)"));
    Select(0, 100);
    // A truth value arrives as the number it is.
    Events->Take();
    EXPECT_EQ(LateCall(*Control, "Save", DISPATCH_METHOD, {"/out.wav", Bool{763}}).Status, S_OK);
    EXPECT_EQ(Dusoro->Written.size(), 12000u);
    EXPECT_EQ(LateCall(*Control, "Save", DISPATCH_METHOD, {"/out.wav"}).Status,
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(LateCall(*Control, "DeleteSelect", DISPATCH_METHOD, none).Status, S_OK);
    const LateCall undo(*Control, "UndoEnabled", DISPATCH_PROPERTYGET, none);
    EXPECT_EQ(FromVariant(undo.Result), Value(Bool{1}));
    const LateCall position(*Control, "Position", DISPATCH_PROPERTYGET, none);
    ASSERT_EQ(position.Result.vt, VT_DISPATCH);
    const LateCall total(*position.Result.pdispVal, "TotalSamples", DISPATCH_PROPERTYGET, none);
    EXPECT_EQ(FromVariant(total.Result), Value(LONG{11900}));

    Dusoro->CreateCode = -18;
    const LateCall failing(*Control, "Save", DISPATCH_METHOD, {"/out.wav", SHORT{0}, LONG{2}});
    EXPECT_EQ(failing.Status, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<std::uint32_t>(failing.Exception.scode), 0x80040309u);
    EXPECT_EQ(automation::ToUtf8(Bstr::View(failing.Exception.bstrDescription)),
              "File Access error.");
}

}  // namespace
}  // namespace mavrin2::tests
