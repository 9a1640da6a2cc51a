#include "control/server/companion_callbacks.h"

#include <gtest/gtest.h>

#include "automation/connection_points.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "companions/contracts/companion_events.h"

namespace mavrin2::server {
namespace {

using automation::ComPtr;

// A companion with one connection point, which must not be disconnected after it is gone.
class Companion final : public IUnknown {
public:
    explicit Companion(const IID& events) : points_(this, {&events}) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        *object = IsEqualGUID(iid, IID_IUnknown)                    ? static_cast<IUnknown*>(this)
                  : IsEqualGUID(iid, IID_IConnectionPointContainer) ? &points_
                                                                    : nullptr;
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++Count; }
    STDMETHODIMP_(ULONG) Release() override { return --Count; }

    automation::ConnectionPoint& Point() { return points_.At(0); }

    ULONG Count = 1;

private:
    automation::ConnectionPoints points_;
};

// Writes down what each sink makes of its companion's events.
class Reactions final : public PlaybackReactions,
                        public CaptureReactions,
                        public TransformReactions,
                        public CdReactions {
public:
    void FeedBlock() override { Add("feed"); }
    void UpdatePlayCursor(LONG frames) override { Add("play", frames); }
    void Meter(LONG left, LONG right) override { Add("meter", left), Add("and", right); }
    void EndOfData() override { Add("end"); }
    void StoreRecordedBlock() override { Add("store"); }
    void UpdateRecordCursor(LONG frames) override { Add("record", frames); }
    void GainChange(LONG volume) override { Add("gain", volume); }
    void ReportTransformProgress(LONG percent) override { Add("transform", percent); }
    void ShowProgress(LONG percent) override { Add("track", percent); }

    std::string Take() { return std::exchange(log_, {}); }

private:
    void Add(const std::string& what) { log_ += (log_.empty() ? "" : " ") + what; }
    void Add(const std::string& what, LONG number) { Add(what + " " + std::to_string(number)); }

    std::string log_;
};

struct Sink {
    const IID& Events;
    ComPtr<CompanionSink> (*Make)(Reactions& control);
};

template <class Callback>
ComPtr<CompanionSink> MakeSink(Reactions& control) {
    return ComPtr<CompanionSink>(new Callback(control));
}

const Sink kVelto{contracts::DIID_IVelto2Events, MakeSink<CVeltoCallback>};
const Sink kRimbal{contracts::DIID_IRimbal2Events, MakeSink<CRimbalCallback>};
const Sink kKestrin{contracts::DIID_IKestrin2Events, MakeSink<CKestrinCallback>};
const Sink kPindle{contracts::DIID_IPindleCD2Events, MakeSink<CPindleCallback>};

TEST(CompanionSinks, TurnEventsIntoCallsOnTheControl) {
    // An argument "x" is no number.
    struct {
        const Sink& Of;
        DISPID Event;
        HRESULT Status;
        std::vector<const char*> Arguments;
        const char* Calls;
    } const cases[] = {
        {kVelto, 1, S_OK, {}, "feed"},
        {kVelto, 2, S_OK, {}, ""},
        {kVelto, 3, S_OK, {"441", "-7", "9"}, "play 441 meter -7 and 9"},
        {kVelto, 3, S_OK, {"0", "7", "9"}, ""},
        {kVelto, 3, S_OK, {"-1", "7", "9"}, ""},
        {kVelto, 3, E_NOTIMPL, {"x", "7", "9"}, ""},
        {kVelto, 3, E_NOTIMPL, {}, ""},
        {kVelto, 4, S_OK, {}, "feed"},
        {kVelto, 5, S_OK, {}, "end"},
        {kVelto, 6, E_NOTIMPL, {}, ""},
        {kRimbal, 1, S_OK, {}, "store"},
        {kRimbal, 2, S_OK, {"441", "7", "9"}, "record 441 meter 7 and 9"},
        {kRimbal, 2, S_OK, {"0", "7", "9"}, "record 0 meter 7 and 9"},
        {kRimbal, 2, E_NOTIMPL, {"441", "7", "x"}, ""},
        {kRimbal, 2, E_NOTIMPL, {"x", "7", "9"}, ""},
        {kRimbal, 3, S_OK, {"80"}, "gain 80"},
        {kRimbal, 3, E_NOTIMPL, {"x"}, ""},
        {kRimbal, 4, E_NOTIMPL, {}, ""},
        {kKestrin, 1, S_OK, {"40"}, "transform 40"},
        {kKestrin, 1, E_NOTIMPL, {"x"}, ""},
        {kKestrin, 2, S_OK, {}, "transform 100"},
        {kKestrin, 3, E_NOTIMPL, {}, ""},
        {kPindle, 1, S_OK, {"40"}, "track 40"},
        {kPindle, 1, E_NOTIMPL, {}, ""},
        {kPindle, 2, E_NOTIMPL, {}, ""},
    };
    for (const auto& c : cases) {
        Reactions control;
        Companion companion(c.Of.Events);
        SinkConnection connection;
        connection.Connect(&companion, c.Of.Make(control));
        std::vector<automation::Variant> owned(c.Arguments.size());
        for (std::size_t i = 0; i < owned.size(); ++i) {
            owned[i].vt = VT_BSTR;
            owned[i].bstrVal = automation::NewBstr(std::string_view(c.Arguments[i]));
        }
        const std::vector<VARIANT> arguments(owned.begin(), owned.end());
        EXPECT_EQ(automation::FireEvent(companion.Point(), c.Event, arguments), c.Status);
        EXPECT_EQ(control.Take(), c.Calls);
    }
}

TEST(CompanionSinks, LiveUntilBothSidesHaveLetGo) {
    Reactions control;
    Companion companion(kKestrin.Events);
    ComPtr<CompanionSink> kept;
    {
        SinkConnection connection;
        kept = kKestrin.Make(control);
        connection.Connect(&companion, kept);
        EXPECT_EQ(companion.Point().Places(), 1u);
        EXPECT_GT(companion.Count, 1u);
    }
    EXPECT_EQ(companion.Point().Places(), 0u);
    EXPECT_EQ(companion.Count, 1u);
    DISPPARAMS none{};
    EXPECT_EQ(kept->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              E_NOTIMPL);
    EXPECT_EQ(control.Take(), "") << "the control may be gone by now";
}

TEST(CompanionSinks, AnswerForTheirEventsOnly) {
    Reactions control;
    const auto sink = kPindle.Make(control);
    for (const IID& iid : {kPindle.Events, IID_IDispatch, IID_IUnknown}) {
        ComPtr<IUnknown> same;
        EXPECT_EQ(sink->QueryInterface(iid, same.PutVoid()), S_OK);
        EXPECT_EQ(same.Get(), static_cast<IUnknown*>(sink.Get()));
    }
    void* other = &control;
    EXPECT_EQ(sink->QueryInterface(kVelto.Events, &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(sink->GetTypeInfoCount(nullptr), E_NOTIMPL);

    // A companion that reports nothing is simply never heard.
    Companion silent(kVelto.Events);
    SinkConnection connection;
    connection.Connect(&silent, sink);
    connection.Connect(nullptr, sink);
    EXPECT_EQ(silent.Count, 1u);
}

}  // namespace
}  // namespace mavrin2::server
