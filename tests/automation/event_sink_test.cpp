#include "automation/event_sink.h"

#include <gtest/gtest.h>

#include "automation/connection_points.h"
#include "automation/guarded.h"
#include "tests/automation/late_call.h"
#include "tests/support/com_fakes.h"

namespace mavrin2::tests {
namespace {

using automation::EventConnection;
using automation::EventReaction;
using automation::EventSink;

constexpr IID kEvents = {
    0x5e1f0021, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};

class Source final : public Fake<IUnknown> {
public:
    HRESULT Fire(DISPID event, const std::vector<Value>& values) {
        std::vector<automation::Variant> owned;
        for (const Value& value : values)
            owned.push_back(ToVariant(value));
        const std::vector<VARIANT> arguments(owned.begin(), owned.end());
        return automation::FireEvent(points_.At(0), event, arguments);
    }
    std::size_t Connected() { return points_.At(0).Places(); }

private:
    void* FindMore(REFIID iid) override {
        return IsEqualGUID(iid, IID_IConnectionPointContainer) ? &points_ : nullptr;
    }
    automation::ConnectionPoints points_{this, {&kEvents}};
};

using Log = std::vector<LONG>;
void Append(Log& log, std::span<const LONG> arguments) {
    log.insert(log.end(), arguments.begin(), arguments.end());
}
constexpr EventReaction<Log> kTable[] = {
    {1, 0, [](Log& log, std::span<const LONG>) { log.push_back(-1); }},
    {3, 2, &Append},
    {4, 3, &Append},
};

TEST(EventSink, CallsWhatItsTableSaysWithTheArgumentsAsIntegers) {
    const struct {
        DISPID Event;
        std::vector<Value> Arguments;
        HRESULT Status;
        Log Received;
    } cases[] = {
        {1, {}, S_OK, {-1}},
        {1, {LONG{5}}, S_OK, {-1}},
        {3, {"441", SHORT{-7}}, S_OK, {441, -7}},
        {3, {LONG{441}}, E_NOTIMPL, {}},
        {3, {LONG{441}, "x"}, E_NOTIMPL, {}},
        {4, {LONG{1}, LONG{2}, LONG{3}}, S_OK, {1, 2, 3}},
        {2, {}, E_NOTIMPL, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Event);
        Source source;
        Log log;
        EventConnection connection;
        ASSERT_EQ(connection.Open(&source, kEvents, automation::HandlerOf<Log>(kTable, log)), S_OK);
        EXPECT_EQ(source.Fire(c.Event, c.Arguments), c.Status);
        EXPECT_EQ(log, c.Received);
    }
}

TEST(EventConnection, EndsBothSidesWhenItIsClosedAlsoFromItsHandler) {
    Source source;
    int calls = 0;
    {
        EventConnection connection;
        const auto handler = [&](DISPID, const automation::EventArguments&) {
            ++calls;
            connection.Close();
            return S_OK;
        };
        ASSERT_EQ(connection.Open(&source, kEvents, handler), S_OK);
        EXPECT_EQ(source.Connected(), 1U);
        EXPECT_GT(source.References, 0U);
        EXPECT_EQ(source.Fire(1, {}), S_OK);
        EXPECT_EQ(source.Connected(), 0U);
        ASSERT_EQ(connection.Open(&source, kEvents, handler), S_OK);
    }
    source.Fire(1, {});
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(source.References, 0U);
}

TEST(EventConnection, FailsWhereThereAreNoSuchEvents) {
    Source source;
    EventConnection connection;
    EXPECT_EQ(connection.Open(&source, IID_IDispatch, {}), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(connection.Open(nullptr, kEvents, {}), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(source.References, 0U);
}

TEST(EventSink, AnswersForItsEventsAndNothingMoreOnceItIsMuted) {
    const auto sink = automation::MakeCounted<EventSink>(
        kEvents, [](DISPID, const automation::EventArguments&) -> HRESULT {
            throw automation::StatusError{E_ABORT};
        });
    for (const IID& iid : {kEvents, IID_IDispatch, IID_IUnknown}) {
        automation::ComPtr<IUnknown> same;
        EXPECT_EQ(sink->QueryInterface(iid, same.PutVoid()), S_OK);
        EXPECT_EQ(same.Get(), static_cast<IUnknown*>(sink.Get()));
    }
    void* other = &other;
    EXPECT_EQ(sink->QueryInterface(IID_IClassFactory, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    DISPPARAMS none{};
    const auto invoke = [&] {
        return sink->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(), E_ABORT);
    sink->Mute();
    EXPECT_EQ(invoke(), E_NOTIMPL);
}

}  // namespace
}  // namespace mavrin2::tests
