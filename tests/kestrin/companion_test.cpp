#include <cstdio>

#include "automation/event_sink.h"
#include "automation/safe_array.h"
#include "companions/contracts/companion_events.h"
#include "companions/kestrin/transform_companion.h"
#include "tests/kestrin/transform_test.h"

namespace mavrin2::kestrin {
namespace {

using automation::ArrayView;
using automation::SafeArray;
using contracts::KestrinEvent;

class CompanionTest : public testing::Test {
protected:
    CompanionTest() {
        EXPECT_EQ(events_.Open(companion_.Get(), contracts::DIID_IKestrin2Events,
                               [this](DISPID event, const automation::EventArguments& arguments) {
                                   LONG percent = 100;
                                   arguments.Read(0, percent);
                                   seen_.emplace_back(static_cast<KestrinEvent>(event), percent);
                                   if (onEvent_) onEvent_();
                                   return S_OK;
                               }),
                  S_OK);
    }

    template <class Element>
    static SafeArray<Element> ArrayOf(const std::vector<Element>& elements) {
        SafeArray<Element> array(elements.size());
        const ArrayView<Element> view(array.Get());
        std::copy(elements.begin(), elements.end(), view.Elements().begin());
        return array;
    }
    static Samples Content(SAFEARRAY* array) {
        const ArrayView<std::int16_t> view(array);
        return {view.Elements().begin(), view.Elements().end()};
    }
    // Calls a member with an array that it may exchange, and gives back what the array then holds.
    template <class Call>
    Samples Changed(const Samples& samples, const Call& call) {
        SAFEARRAY* array = ArrayOf(samples).Detach();
        status_ = call(&array);
        Samples content = Content(array);
        EXPECT_EQ(SafeArrayDestroy(array), S_OK);
        return content;
    }

    automation::ComPtr<TransformCompanion> companion_ = TransformCompanion::Make(
        std::make_unique<BackendLibraries>(tests::BuiltBackends("kestrin")));
    automation::EventConnection events_;
    std::vector<std::pair<KestrinEvent, LONG>> seen_;
    std::function<void()> onEvent_;
    HRESULT status_ = S_OK;
};

TEST_F(CompanionTest, ChangesShortensAndReplacesTheCallersArray) {
    const Samples sound = {100, 200, 300, 0};
    EXPECT_EQ(Changed(sound, [&](auto** a) { return companion_->Amplify(a, 50); }),
              (Samples{50, 100, 150, 0}));
    EXPECT_EQ(Changed(sound, [&](auto** a) { return companion_->DeleteSilence(a, -90, 0, 0); }),
              (Samples{100, 200, 300}));
    EXPECT_EQ(Changed(Samples(50), [&](auto** a) { return companion_->TrimEnd(a, -40, 0); }),
              Samples());
    EXPECT_EQ(Changed(sound, [&](auto** a) { return companion_->Resample(a, 200); }).size(), 8);
    EXPECT_EQ(status_, S_OK);
    auto envelope = ArrayOf<float>({0, 200});
    SAFEARRAY* envelopeArray = envelope.Get();
    EXPECT_EQ(
        Changed({100, 100, 100}, [&](auto** a) { return companion_->Envelope(a, &envelopeArray); }),
        (Samples{0, 100, 200}));
    EXPECT_EQ(envelopeArray, envelope.Get());
}

TEST_F(CompanionTest, KeepsItsSettings) {
    const Samples sound(882, 10000);
    companion_->put_SetSampleRate(8820);
    companion_->put_SetSmoothTime(10);
    companion_->put_SetSmoothingFirst(1);
    const auto silenced = [&] {
        return Changed(sound, [&](auto** a) { return companion_->Silence(a); });
    };
    EXPECT_GT(silenced()[87], 0);
    EXPECT_EQ(silenced()[88], 0);
    EXPECT_EQ(silenced().back(), 0);
    companion_->put_SetSmoothingSecond(1);
    EXPECT_GT(silenced().back(), 0);
    companion_->put_SetChannelCount(2);
    EXPECT_EQ(Changed({9, 0, 0, 0, 0, 9, 0, 0},
                      [&](auto** a) { return companion_->DeleteSilence(a, -96, 0, 0); }),
              (Samples{9, 0, 0, 9}));
}

TEST_F(CompanionTest, FiresRisingPercentagesAndThenDone) {
    Changed(WhiteNoise(500000),
            [&](auto** a) { return companion_->Normalize(a, 100, VARIANT_TRUE); });
    ASSERT_GE(seen_.size(), 60U);
    EXPECT_EQ(seen_.front(), std::pair(KestrinEvent::Progress, LONG{0}));
    for (std::size_t i = 1; i + 1 < seen_.size(); ++i) {
        EXPECT_EQ(seen_[i].first, KestrinEvent::Progress);
        EXPECT_GT(seen_[i].second, seen_[i - 1].second);
    }
    EXPECT_EQ(seen_[seen_.size() - 2].second, 99);
    EXPECT_EQ(seen_.back().first, KestrinEvent::Done);
}

TEST_F(CompanionTest, AbortEndsTheRunningOperationAndNoOther) {
    companion_->Abort();
    onEvent_ = [&] {
        if (seen_.size() == 20) companion_->Abort();
    };
    const Samples noise = WhiteNoise(500000);
    Changed(noise, [&](auto** a) { return companion_->Reverb(a, 20, 50, 80, 100, 5000, 8); });
    EXPECT_EQ(status_, E_ABORT);
    EXPECT_EQ(seen_.size(), 20U);
    Changed(noise, [&](auto** a) { return companion_->Invert(a); });
    EXPECT_EQ(status_, S_OK);
    EXPECT_EQ(seen_.back().first, KestrinEvent::Done);
}

TEST_F(CompanionTest, AHandlerCannotStartAnOperation) {
    HRESULT inner = S_OK;
    onEvent_ = [&] {
        SafeArray<std::int16_t> other(5);
        SAFEARRAY* array = other.Get();
        inner = companion_->Invert(&array);
    };
    EXPECT_EQ(Changed({1, 2}, [&](auto** a) { return companion_->Invert(a); }), (Samples{-1, -2}));
    EXPECT_EQ(inner, E_UNEXPECTED);
}

TEST_F(CompanionTest, RefusesWhatIsNoBlock) {
    EXPECT_EQ(companion_->Invert(nullptr), E_INVALIDARG);
    SAFEARRAY* none = nullptr;
    EXPECT_EQ(companion_->Invert(&none), E_INVALIDARG);
    auto floats = ArrayOf<float>({1, 2});
    SAFEARRAY* wrong = floats.Get();
    EXPECT_EQ(companion_->Invert(&wrong), E_INVALIDARG);
    SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 0}};
    SAFEARRAY* plane = SafeArrayCreate(VT_I2, 2, bounds);
    EXPECT_EQ(companion_->Invert(&plane), E_INVALIDARG);
    SafeArrayDestroy(plane);
    EXPECT_EQ(Changed({}, [&](auto** a) { return companion_->Invert(a); }), Samples());
    EXPECT_EQ(status_, S_OK);
    // Numbers that are none leave the sound as it is.
    const Samples sound = {7, 8};
    EXPECT_EQ(Changed(sound, [&](auto** a) { return companion_->Envelope(a, nullptr); }), sound);
    auto integers = ArrayOf<std::int16_t>({1, 2});
    SAFEARRAY* notFloats = integers.Get();
    EXPECT_EQ(Changed(sound, [&](auto** a) { return companion_->FFTFilter(a, &notFloats); }),
              sound);
}

TEST_F(CompanionTest, IsCalledByNameWithAnArrayOfTheCaller) {
    auto name = OLESTR("Amplify");
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    DISPID id = 0;
    ASSERT_EQ(companion_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    SAFEARRAY* array = ArrayOf<std::int16_t>({10, 20}).Detach();
    VARIANT arguments[2] = {};
    arguments[0].vt = VT_I4;
    arguments[0].lVal = 300;
    arguments[1].vt = VT_ARRAY | VT_I2 | VT_BYREF;
    arguments[1].pparray = &array;
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXPECT_EQ(companion_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                 nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(Content(array), (Samples{30, 60}));
    SafeArrayDestroy(array);
}

// What hosts read about a parameter is what it does.
TEST(KestrinDescription, SaysTheRangesOfTheOperations) {
    const auto& members = automation::DescriptionOf<contracts::IKestrin2>().Members;
    ASSERT_EQ(members.size(), Operations().size() + 6);
    for (std::size_t i = 0; i < Operations().size(); ++i) {
        const Operation& operation = Operations()[i];
        const std::string help = members[i].Help;
        ASSERT_STREQ(members[i].Name, operation.Name);
        const auto expect = [&](const Parameter& parameter) {
            if (std::string_view(parameter.Name) == "DCBiasAdjust") return;
            char range[80];
            std::snprintf(range, sizeof range, "%g to %g", parameter.Low, parameter.High);
            std::string text = range;
            if (parameter.High == 192000)
                text = std::to_string(static_cast<int>(parameter.Low)) + " to 192000";
            const std::size_t at = help.find(parameter.Name);
            ASSERT_NE(at, std::string::npos) << operation.Name << " " << parameter.Name;
            const std::size_t end = help.find(';', at);
            EXPECT_NE(help.substr(at, end - at).find(text), std::string::npos)
                << operation.Name << " " << parameter.Name << ": " << text;
        };
        for (const Parameter& parameter : operation.Values)
            expect(parameter);
        for (const Parameter& parameter : operation.Arrays)
            expect(parameter);
    }
}

}  // namespace
}  // namespace mavrin2::kestrin
