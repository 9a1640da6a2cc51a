#include "automation/object.h"

#include <gtest/gtest.h>

#include "tests/automation/thing.h"
#include "tests/support/com_fakes.h"

namespace mavrin2::tests {
namespace {

using automation::AutomationObject;
using automation::ComPtr;
using automation::StatusError;

constexpr IID kOuterInterface = {
    0x5e1f0009, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};

// An object that can be told to fail, and whose last breath is busy.

struct IMoody : public IDispatch {
    static constexpr IID Id = {
        0x5e1f000a, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
};

}  // namespace
}  // namespace mavrin2::tests

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<tests::IMoody>() {
    static const InterfaceDescription description{"IMoody", tests::IMoody::Id, "", false, {}, {}};
    return description;
}
}  // namespace mavrin2::automation

namespace mavrin2::tests {
namespace {

class MoodyThing final : public AutomationObject<MoodyThing, IMoody> {
public:
    struct Life {
        HRESULT Construction = S_OK;
        int Alive = 0;
        int FinalReleases = 0;
        bool ThrowEarly = false;
    };

    MoodyThing(IUnknown* outer, Life& life) : AutomationObject(outer), life_(life) {
        if (life.ThrowEarly) throw std::bad_alloc();
        ++life_.Alive;
    }
    ~MoodyThing() { --life_.Alive; }

    HRESULT FinalConstruct() { return life_.Construction; }
    void FinalRelease() {
        ++life_.FinalReleases;
        // What is torn down asks for the object once more.
        ComPtr<IDispatch>(this).As<IMoody>();
    }

private:
    Life& life_;
};

TEST(Object, AnswersForItsInterfacesWithOneIdentity) {
    const ComPtr<TestThing> thing = TestThing::Make();
    const auto identity = thing.As<IUnknown>();
    for (const IID& iid :
         {IID_IUnknown, IID_IDispatch, IID_TestThing, IID_ISupportErrorInfo,
          IID_IConnectionPointContainer, IID_IProvideClassInfo, IID_IProvideClassInfo2}) {
        ComPtr<IUnknown> face;
        ASSERT_EQ(identity->QueryInterface(iid, face.PutVoid()), S_OK);
        EXPECT_EQ(face.As<IUnknown>().Get(), identity.Get());
        EXPECT_TRUE(face.As<ITestThing>()) << "from every interface to every other";
    }
    void* nothing = &nothing;
    EXPECT_EQ(identity->QueryInterface(kOuterInterface, &nothing), E_NOINTERFACE);
    EXPECT_EQ(nothing, nullptr);
    EXPECT_EQ(identity->QueryInterface(IID_IUnknown, nullptr), E_POINTER);

    const auto errors = thing.As<ISupportErrorInfo>();
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_TestThing), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
}

TEST(Object, LivesAsLongAsAnyOfItsInterfacesIsHeld) {
    ComPtr<TestThing> thing = TestThing::Make();
    auto points = thing.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(points->FindConnectionPoint(DIID_TestThingEvents, point.Put()), S_OK);
    thing.Reset();
    points.Reset();
    EXPECT_EQ(TestThing::Alive(), 1) << "a connection point is a part of it";
    point.Reset();
    EXPECT_EQ(TestThing::Alive(), 0);
}

TEST(Object, DelegatesToTheOuterObjectThatAggregatesIt) {
    FakeOuter outer;
    outer.Knows = [](REFIID iid) { return IsEqualGUID(iid, kOuterInterface); };
    ASSERT_EQ(TestThing::Create(&outer, IID_IUnknown, outer.Inner.PutVoid()), S_OK);
    EXPECT_EQ(outer.References, 0U) << "the inner object must not hold the outer one";

    EXPECT_EQ(outer.Inner.As<IUnknown>().Get(), outer.Inner.Get())
        << "what the outer object holds stays the inner one's own";
    {
        const auto thing = outer.Inner.As<ITestThing>();
        ASSERT_TRUE(thing);
        EXPECT_EQ(outer.References, 1U) << "every other interface counts on the outer object";
        EXPECT_EQ(thing.As<IUnknown>().Get(), static_cast<IUnknown*>(&outer));
        ComPtr<IUnknown> outside;
        EXPECT_EQ(thing->QueryInterface(kOuterInterface, outside.PutVoid()), S_OK);

        for (const IID& iid :
             {IID_ISupportErrorInfo, IID_IConnectionPointContainer, IID_IProvideClassInfo2}) {
            ComPtr<IUnknown> face;
            ASSERT_EQ(thing->QueryInterface(iid, face.PutVoid()), S_OK);
            EXPECT_EQ(face.As<IUnknown>().Get(), static_cast<IUnknown*>(&outer));
        }
        LONG alive = 0;
        EXPECT_EQ(thing->get_Alive(&alive), S_OK);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(outer.References, 0U);
    outer.Inner.Reset();
    EXPECT_EQ(TestThing::Alive(), 0);
}

TEST(Object, IsAggregatedOnlyByWhoAsksForUnknown) {
    FakeOuter outer;
    void* object = &object;
    EXPECT_EQ(TestThing::Create(&outer, IID_TestThing, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(TestThing::Create(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(TestThing::Create(nullptr, kOuterInterface, &object), E_NOINTERFACE);
    EXPECT_EQ(TestThing::Alive(), 0);
    EXPECT_EQ(outer.References, 0U);
}

TEST(Object, LeavesNothingBehindWhenItsConstructionFails) {
    MoodyThing::Life life;
    void* object = &object;
    life.Construction = E_ACCESSDENIED;
    EXPECT_EQ(MoodyThing::Create(nullptr, IID_IUnknown, &object, life), E_ACCESSDENIED);
    EXPECT_EQ(object, nullptr);
    FakeOuter outer;
    EXPECT_EQ(MoodyThing::Create(&outer, IID_IUnknown, &object, life), E_ACCESSDENIED);
    EXPECT_THROW(MoodyThing::Make(life), StatusError);
    EXPECT_EQ(life.FinalReleases, 3) << "what had been made by then is torn down";

    life = {};
    life.ThrowEarly = true;
    EXPECT_EQ(MoodyThing::Create(nullptr, IID_IUnknown, &object, life), E_OUTOFMEMORY);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(life.Alive, 0);
}

TEST(Object, MayBeUsedWhileItIsTornDown) {
    MoodyThing::Life life;
    MoodyThing::Make(life);
    EXPECT_EQ(life.FinalReleases, 1);
    EXPECT_EQ(life.Alive, 0);
}

TEST(Object, TellsItsTypeOnlyWhereThereIsALibrary) {
    const auto thing = TestThing::Make().As<IDispatch>();
    UINT count = 0;
    EXPECT_EQ(thing->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ComPtr<ITypeInfo> information;
    EXPECT_EQ(thing->GetTypeInfo(0, 0, information.Put()), S_OK);
    EXPECT_TRUE(information);
    EXPECT_EQ(thing->GetTypeInfo(1, 0, information.Put()), DISP_E_BADINDEX);
    EXPECT_FALSE(information);

    MoodyThing::Life life;
    EXPECT_EQ(MoodyThing::Make(life)->GetTypeInfo(0, 0, information.Put()), E_NOTIMPL);
}

}  // namespace
}  // namespace mavrin2::tests
