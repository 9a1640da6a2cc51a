#include "automation/connection_points.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <sstream>

#include "tests/automation/late_call.h"
#include "tests/automation/thing.h"
#include "tests/support/com_fakes.h"

namespace mavrin2::tests {
namespace {

using automation::ComPtr;
using testing::ElementsAre;

// Notes the events it gets.
class Sink final : public FakeSink {
public:
    using FakeSink::FakeSink;

    STDMETHODIMP Invoke(DISPID event, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT*) override {
        Log.push_back(std::to_string(event));
        for (UINT i = arguments->cArgs; i > 0; --i) {
            std::ostringstream text;
            text << FromVariant(arguments->rgvarg[i - 1]);
            Log.push_back(text.str());
        }
        EXPECT_TRUE(IsEqualGUID(iid, IID_NULL));
        EXPECT_EQ(locale, LCID{0x400});
        EXPECT_EQ(flags, DISPATCH_METHOD);
        EXPECT_EQ(arguments->cNamedArgs, 0U);
        EXPECT_EQ(exception, nullptr);
        // What a careless sink leaves here must not leak.
        result->bstrVal = SysAllocString(OLESTR("mine"));
        result->vt = VT_BSTR;
        if (Reaction) Reaction();
        return Status;
    }

    std::vector<std::string> Log;
    HRESULT Status = S_OK;
    std::function<void()> Reaction;
};

class Points : public testing::Test {
protected:
    Points() {
        thing_.As<IConnectionPointContainer>()->FindConnectionPoint(DIID_TestThingEvents,
                                                                    point_.Put());
    }
    ~Points() override {
        point_.Reset();
        thing_.Reset();
        EXPECT_EQ(TestThing::Alive(), 0);
    }

    // Outlives the object, as a host does.
    Sink& NewSink(REFIID events = DIID_TestThingEvents) { return sinks_.emplace_back(events); }

    DWORD Advise(Sink& sink) {
        DWORD cookie = 0;
        EXPECT_EQ(point_->Advise(&sink, &cookie), S_OK);
        EXPECT_NE(cookie, 0U);
        return cookie;
    }
    HRESULT Fire() { return automation::FireEvent(thing_->Events(), event::Done, {}); }

    std::deque<Sink> sinks_;
    ComPtr<TestThing> thing_ = TestThing::Make();
    ComPtr<IConnectionPoint> point_;
};

TEST_F(Points, PassEventsToEverySinkAsOftenAsItIsConnected) {
    EXPECT_EQ(Fire(), S_OK) << "without connections";
    Sink& once = NewSink();
    Sink& twice = NewSink();
    Advise(once);
    const DWORD first = Advise(twice);
    const DWORD second = Advise(twice);
    EXPECT_NE(first, second);
    ASSERT_EQ(thing_->Fire(33, automation::Bstr(std::string_view("a third")).Get()), S_OK);
    EXPECT_THAT(once.Log, ElementsAre("1", "VT 2 33", "VT 8 a third", "4"));
    EXPECT_EQ(twice.Log.size(), 2 * once.Log.size());

    EXPECT_EQ(point_->Unadvise(first), S_OK);
    once.Log.clear();
    twice.Log.clear();
    Fire();
    EXPECT_THAT(once.Log, ElementsAre("4"));
    EXPECT_THAT(twice.Log, ElementsAre("4"));
}

TEST_F(Points, HoldASinkUntilItIsDisconnectedOrTheObjectGoes) {
    Sink& left = NewSink();
    Sink& kept = NewSink();
    const DWORD cookie = Advise(left);
    Advise(kept);
    EXPECT_EQ(left.References, 1U);
    EXPECT_EQ(point_->Unadvise(cookie), S_OK);
    EXPECT_EQ(left.References, 0U);
    EXPECT_EQ(point_->Unadvise(cookie), CONNECT_E_NOCONNECTION) << "once is enough";
    point_.Reset();
    thing_.Reset();
    EXPECT_EQ(kept.References, 0U);
}

TEST_F(Points, ListConnectionsByCookiesThatAreNeverGivenTwice) {
    Sink& sink = NewSink();
    const DWORD first = Advise(sink);
    point_->Unadvise(first);
    const DWORD second = Advise(sink);
    EXPECT_NE(second, first);
    ComPtr<IEnumConnections> all;
    ASSERT_EQ(point_->EnumConnections(all.Put()), S_OK);
    CONNECTDATA data{};
    ASSERT_EQ(all->Next(1, &data, nullptr), S_OK);
    EXPECT_EQ(data.dwCookie, second);
    EXPECT_EQ(data.pUnk, &sink);
    data.pUnk->Release();
    EXPECT_EQ(all->Next(1, &data, nullptr), S_FALSE);
}

TEST_F(Points, RefuseWhatIsNoSink) {
    Sink& stranger = NewSink(IID_TestThing);
    DWORD cookie = 77;
    EXPECT_EQ(point_->Advise(&stranger, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(stranger.References, 0U);
    EXPECT_EQ(point_->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(point_->Advise(&stranger, nullptr), E_POINTER);
    EXPECT_EQ(point_->Unadvise(0), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point_->Unadvise(5), CONNECT_E_NOCONNECTION);
}

TEST_F(Points, GoOnAfterASinkThatFails) {
    Sink& failing = NewSink();
    failing.Status = E_FAIL;
    Sink& fine = NewSink();
    Advise(failing);
    EXPECT_EQ(Fire(), E_FAIL);
    Advise(fine);
    EXPECT_EQ(Fire(), S_OK) << "the last sink's answer";
    EXPECT_EQ(fine.Log.size(), 1U);
}

TEST_F(Points, ManageWhenSinksComeAndGoWhileAnEventIsPassedOn) {
    Sink& first = NewSink();
    Sink& second = NewSink();
    Sink& third = NewSink();
    Sink& late = NewSink();
    const DWORD firstCookie = Advise(first);
    const DWORD secondCookie = Advise(second);
    Advise(third);
    first.Reaction = [&] {
        point_->Unadvise(firstCookie);
        point_->Unadvise(secondCookie);
        // More than the array has room for.
        for (int i = 0; i < 20; ++i)
            Advise(late);
    };
    Fire();
    EXPECT_EQ(first.Log.size(), 1U);
    EXPECT_EQ(second.Log.size(), 0U);
    EXPECT_EQ(third.Log.size(), 1U);
    EXPECT_EQ(late.Log.size(), 0U) << "not there when the event began";
    Fire();
    EXPECT_EQ(late.Log.size(), 20U);
}

TEST_F(Points, OutliveTheLastReferenceThatASinkGivesUp) {
    Sink& first = NewSink();
    Sink& second = NewSink();
    Advise(first);
    Advise(second);
    point_.Reset();
    first.Reaction = [&] { thing_.Reset(); };
    automation::FireEvent(thing_->Events(), event::Done, {});
    EXPECT_EQ(second.Log.size(), 1U);
    EXPECT_EQ(TestThing::Alive(), 0);
}

TEST_F(Points, AreFoundAndListed) {
    const auto container = thing_.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> found;
    EXPECT_EQ(container->FindConnectionPoint(IID_IUnknown, found.Put()), CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(found);

    IID iid{};
    EXPECT_EQ(point_->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(IsEqualGUID(iid, DIID_TestThingEvents));
    ComPtr<IConnectionPointContainer> back;
    EXPECT_EQ(point_->GetConnectionPointContainer(back.Put()), S_OK);
    EXPECT_EQ(back.As<IUnknown>().Get(), thing_.As<IUnknown>().Get());

    ComPtr<IEnumConnectionPoints> all;
    ASSERT_EQ(container->EnumConnectionPoints(all.Put()), S_OK);
    IConnectionPoint* points[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(all->Next(3, points, nullptr), E_POINTER) << "several need a count";
    EXPECT_EQ(all->Next(3, points, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2U);
    EXPECT_EQ(points[0], point_.Get());
    for (ULONG i = 0; i < fetched; ++i)
        points[i]->Release();

    ComPtr<IEnumConnectionPoints> copy;
    EXPECT_EQ(all->Reset(), S_OK);
    EXPECT_EQ(all->Skip(1), S_OK);
    EXPECT_EQ(all->Clone(copy.Put()), S_OK);
    EXPECT_EQ(all->Skip(2), S_FALSE);
    ASSERT_EQ(copy->Next(1, points, nullptr), S_OK) << "a copy starts at the original's position";
    EXPECT_EQ(points[0]->GetConnectionInterface(&iid), S_OK);
    points[0]->Release();
    EXPECT_TRUE(IsEqualGUID(iid, IID_IPropertyNotifySink));
}

}  // namespace
}  // namespace mavrin2::tests
