// The transform pipeline: which samples the companion sees, what becomes of them, and what a host
// hears.

#include <functional>
#include <string>

#include "automation/safe_array.h"
#include "tests/control/control_test.h"
#include "tests/support/fake_kestrin.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2Transform;
using interfaces::TrimConstants;

class TransformTest : public ControlTest {
protected:
    TransformTest() {
        Control->get_Transform(Transform.Put());
        Transform->put_SmoothEnabled(0);
    }

    // Frames 10 to 14 of a hundred are selected.
    void OpenStereo() {
        OpenSound(Ramp(200), 2);
        Select(10, 14);
        Forget();
    }
    void OpenMono() {
        OpenSound(Ramp(100));
        Select(10, 14);
        Forget();
    }
    void Forget() {
        Kestrin->Calls.clear();
        Events->Take();
    }
    void SwitchOperation(SHORT channel, SHORT on) {
        automation::ComPtr<interfaces::IMavrin2Channel> channels;
        Control->get_Channels(channels.Put());
        channels->put_Num(channel);
        channels->put_Operation(on);
        Forget();
    }
    std::string Calls() { return std::exchange(Kestrin->Calls, {}); }

    automation::ComPtr<IMavrin2Transform> Transform;
};

SAFEARRAY** Numbers(automation::SafeArray<float>& array, std::vector<float> values) {
    array = automation::SafeArray<float>(values.size());
    std::ranges::copy(values, automation::ArrayView<float>(array.Get()).Elements().begin());
    return array.Address();
}

TEST_F(TransformTest, HandsEachOperationItsBlocksAndParameters) {
    automation::SafeArray<float> one;
    automation::SafeArray<float> two;
    automation::SafeArray<float> three;
    Numbers(one, {1, 2});
    Numbers(two, {3});
    Numbers(three, {});
    struct Case {
        LONG Status;
        std::function<void(IMavrin2Transform&)> Call;
        std::string Left;        // the call for a block of five samples
        std::string Whole = {};  // or of ten
    };
    const Case cases[] = {
        {30, [](auto& t) { t.Resample(50); }, "Resample(5,50)"},
        {31, [](auto& t) { t.PitchShift(51); }, "PitchShift(5,51)"},
        {32, [](auto& t) { t.TimeStretch(52); }, "TimeStretch(5,52)"},
        {35, [](auto& t) { t.Trim(-40, 7, TrimConstants::TRIM_LEFT); }, "", "TrimStart(10,-40,7)"},
        {35, [](auto& t) { t.Trim(-40, 7, TrimConstants::TRIM_RIGHT); }, "", "TrimEnd(10,-40,7)"},
        {35, [](auto& t) { t.Trim(-40, 7, TrimConstants::TRIM_BOTH); }, "",
         "TrimStart(10,-40,7) TrimEnd(10,-40,7)"},
        {36, [](auto& t) { t.DeleteSilence(-50, 1, 2); }, "",
         "Count(2) DeleteSilence(10,-50,1,2) Count(1)"},
        {38, [](auto& t) { t.AddNoise(-30, 2); }, "AddNoise(5,-30,2)"},
        {39, [](auto& t) { t.MixStereoChannels(1, 2, 3, 4); }, "", "MixStereoChannels(10,1,2,3,4)"},
        {40, [](auto& t) { t.Silence(); }, "Silence(5)"},
        {41, [](auto& t) { t.Reverse(); }, "Reverse(5)"},
        {42, [](auto& t) { t.Invert(); }, "Invert(5)"},
        {43, [](auto& t) { t.Amplify(80); }, "Amplify(5,80)"},
        {44, [](auto& t) { t.Fade(1, 2); }, "Fade(5,1,2)"},
        {45, [](auto& t) { t.Normalize(90, -1); }, "Normalize(5,90,-1)"},
        {46, [](auto& t) { t.Vibrato(1, 2, 3); }, "Vibrato(5,1,2,3)"},
        {47, [&](auto& t) { t.Envelope(one.Address()); }, "Envelope(5,[1][2])"},
        {48, [](auto& t) { t.Compressor(1, 2, 3); }, "Compressor(5,1,2,3)"},
        {49, [](auto& t) { t.Expander(1, 2, 3); }, "Expander(5,1,2,3)"},
        {50, [](auto& t) { t.Delay(1, 2, 3); }, "Delay(5,1,2,3)"},
        {51, [](auto& t) { t.Flanger(1, 2, 3, 4, 5, 6); }, "Flanger(5,1,2,3,4,5,6)"},
        {52, [](auto& t) { t.Chorus(1, 2, 3, 4, 5, 6); }, "Chorus(5,1,2,3,4,5,6)"},
        {53, [](auto& t) { t.Phaser(1, 2, 3); }, "Phaser(5,1,2,3)"},
        {54, [](auto& t) { t.Reverb(1, 2, 3, 4, 5, 6); }, "Reverb(5,1,2,3,4,5,6)"},
        {55, [](auto& t) { t.LowPassFilter(1, 2); }, "LowPassFilter(5,1,2)"},
        {56, [](auto& t) { t.HighPassFilter(1, 2); }, "HighPassFilter(5,1,2)"},
        {57, [](auto& t) { t.BandPassFilter(1, 2); }, "BandPassFilter(5,1,2)"},
        {58, [](auto& t) { t.NotchFilter(1, 2); }, "NotchFilter(5,1,2)"},
        {59, [](auto& t) { t.PeakEQFilter(1, 2, 3); }, "PeakEQFilter(5,1,2,3)"},
        {60, [&](auto& t) { t.Equalizer(one.Address(), two.Address()); },
         "Equalizer(5,[1][2],[3])"},
        {61, [](auto& t) { t.LowShelfFilter(1, 2, 3); }, "LowShelfFilter(5,1,2,3)"},
        {62, [](auto& t) { t.HighShelfFilter(1, 2, 3); }, "HighShelfFilter(5,1,2,3)"},
        {63, [&](auto& t) { t.FFTFilter(two.Address()); }, "FFTFilter(5,[3])"},
        {64, [&](auto& t) { t.FIRFilter(one.Address(), two.Address(), three.Address(), 9); },
         "FIRFilter(5,[1][2],[3],,9)"},
    };
    OpenStereo();
    for (const Case& c : cases) {
        LONG status = 0;
        Kestrin->Process = [&](Samples&) {
            status = Status();
            return S_OK;
        };
        c.Call(*Transform);
        EXPECT_EQ(status, c.Status);
        EXPECT_EQ(Calls(), c.Whole.empty() ? c.Left + " " + c.Left : c.Whole);
        EXPECT_EQ(Status(), 0);
        EXPECT_EQ(DocumentSamples(), Ramp(200)) << "the companion has changed nothing";
        Control->Undo();
        Select(10, 14);
    }
}

TEST_F(TransformTest, WorksOnTheChannelsThatAreSwitchedOn) {
    Kestrin->Process = [](Samples& samples) {
        for (auto& sample : samples)
            sample = -1;
        return S_OK;
    };
    OpenStereo();
    SwitchOperation(2, 0);
    Transform->Invert();
    EXPECT_EQ(Calls(), "Invert(5)");
    Samples expected = Ramp(200);
    for (std::size_t i = 20; i < 30; i += 2)
        expected[i] = -1;
    EXPECT_EQ(DocumentSamples(), expected);
    EXPECT_TRUE(UndoEnabled());

    Transform->Resample(100);
    EXPECT_EQ(Calls(), "Resample(5,100) Resample(5,100)") << "whatever the switches say";
    SwitchOperation(1, 0);
    Transform->Invert();
    EXPECT_EQ(Calls(), "") << "no channel is left";
}

TEST_F(TransformTest, ReportsOneRisingPercentage) {
    Kestrin->Process = [&](Samples&) {
        Kestrin->FireProgress(50);
        Kestrin->FireDone();
        return S_OK;
    };
    OpenSound(Ramp(2000), 2);
    Select(200, 599);
    Forget();
    Transform->Invert();
    // Two passes over 399 frames from frame 200, each reported in the middle and at its end.
    EXPECT_EQ(Events->Take(), "10% 20% 29% 39% 49% 59% 70% 80% 90% 100% 100% end");
    Kestrin->FireDone();
    EXPECT_EQ(Events->Take(), "") << "nothing is running";

    SwitchOperation(2, 0);
    Transform->MixStereoChannels(100, 0, 0, 100);
    EXPECT_EQ(Events->Take(), "10% 20% 39% 59% 70% 80% 90% 100% 100% end");
}

TEST_F(TransformTest, TakesBlocksOfAnotherLength) {
    const auto resized = [this](std::size_t size) {
        Kestrin->Process = [size](Samples& samples) {
            samples.resize(size, -1);
            return S_OK;
        };
        OpenStereo();
        Transform->TimeStretch(100);
        return DocumentSamples();
    };
    Samples expected = Ramp(200);
    expected.insert(expected.begin() + 30, 4, -1);
    EXPECT_EQ(resized(7), expected);
    EXPECT_EQ(Positions(), "selected 10..16 view 0..102 of 102");
    EXPECT_EQ(resized(3), Without(Ramp(200), 26, 30));
    EXPECT_EQ(resized(0), Without(Ramp(200), 20, 30));

    // The right channel comes back shorter than the left one.
    int pass = 0;
    Kestrin->Process = [&](Samples& samples) {
        if (++pass == 2) samples.resize(4);
        return S_OK;
    };
    OpenStereo();
    Transform->TimeStretch(100);
    expected = Ramp(200);
    expected[29] = 0;
    EXPECT_EQ(DocumentSamples(), expected);
}

TEST_F(TransformTest, LeavesTheDocumentWhenTheCompanionFails) {
    struct Case {
        std::function<void(SAFEARRAY**)> Replace;
        HRESULT Status;
        interfaces::ErrorConstants Error;
    };
    const auto missing = [](SAFEARRAY** block) {
        SafeArrayDestroy(*block);
        *block = nullptr;
    };
    const auto other = [](SAFEARRAY** block) {
        SafeArrayDestroy(*block);
        *block = SafeArrayCreateVector(VT_R4, 0, 10);
    };
    const Case cases[] = {{missing, S_OK, interfaces::ErrorConstants::UNEXPECTED},
                          {other, S_OK, interfaces::ErrorConstants::UNEXPECTED},
                          {nullptr, E_FAIL, interfaces::ErrorConstants::UNEXPECTED},
                          {nullptr, E_OUTOFMEMORY, interfaces::ErrorConstants::MEMORY}};
    for (const Case& c : cases) {
        Kestrin->Replace = c.Replace;
        Kestrin->Process = nullptr;
        if (!c.Replace) Kestrin->Process = [&](Samples&) { return c.Status; };
        OpenStereo();
        const std::size_t files = TempFiles().size();
        Transform->Amplify(50);
        EXPECT_EQ(LastError(), static_cast<LONG>(c.Error));
        EXPECT_EQ(DocumentSamples(), Ramp(200));
        EXPECT_FALSE(UndoEnabled());
        EXPECT_EQ(TempFiles().size(), files);
        EXPECT_TRUE(Events->Take().ends_with("end"));
        Control->Close();
    }
}

TEST_F(TransformTest, LeavesTheDocumentWhenTheRegionFindsNoMemory) {
    OpenStereo();
    System.Memory->RefuseNth(2);  // the first block is for copying what is before the region
    Transform->Amplify(50);
    EXPECT_EQ(LastError(), static_cast<LONG>(interfaces::ErrorConstants::MEMORY));
    EXPECT_EQ(Calls(), "");
    EXPECT_EQ(DocumentSamples(), Ramp(200));
    EXPECT_FALSE(UndoEnabled());
    EXPECT_EQ(System.Memory->Held(), 0);
}

TEST_F(TransformTest, IsCancelledInEachEvent) {
    Kestrin->Process = [&](Samples& samples) {
        Kestrin->FireProgress(50);
        samples.assign(samples.size(), 0);
        Kestrin->FireDone();
        return S_OK;
    };
    // The eleventh event comes when the new version is there.
    for (int at = 1; at <= 12; ++at) {
        OpenSound(Ramp(2000), 2);
        Select(200, 599);
        Forget();
        const std::size_t files = TempFiles().size();
        Events->InEvent(at, [&] { Control->Stop(); });
        Transform->Invert();
        EXPECT_TRUE(Events->Acted()) << at;
        EXPECT_NE(Calls().find("Abort"), std::string::npos) << at;
        EXPECT_EQ(Status(), 0);
        EXPECT_EQ(UndoEnabled(), at > 10) << at;
        EXPECT_EQ(TempFiles().size(), files + UndoEnabled()) << at;
        if (!UndoEnabled()) {
            EXPECT_EQ(DocumentSamples(), Ramp(2000)) << at;
        }
        Control->Close();
    }
}

TEST_F(TransformTest, RefusesAnotherOneBeforeTheFirstHasReturned) {
    OpenStereo();
    Kestrin->Process = [&](Samples&) {
        Control->Close();
        OpenStereo();
        Transform->Amplify(50);
        EXPECT_EQ(Calls(), "");
        Kestrin->FireDone();
        EXPECT_EQ(Events->Take(), "") << "this transform has been overtaken";
        return S_OK;
    };
    Transform->Invert();
    EXPECT_EQ(DocumentSamples(), Ramp(200));
    EXPECT_FALSE(UndoEnabled());
}

TEST_F(TransformTest, KeepsTheSelectionAtTheEndOfTheDocument) {
    OpenSound(Ramp(200), 2);
    Select(90, 100);
    Forget();
    Transform->Invert();
    EXPECT_EQ(Calls(), "Invert(10) Invert(10)") << "the frame after the last one does not exist";
    EXPECT_EQ(DocumentSamples(), Ramp(200));
}

TEST_F(TransformTest, SwitchesSmoothingOnForItsTime) {
    EXPECT_EQ(Calls(), "First(0) Second(0) Time(10)") << "from the beginning";
    EXPECT_EQ(Got(*Transform, &IMavrin2Transform::get_SmoothTime), 10);
    Transform->put_SmoothTime(-5);
    EXPECT_EQ(Got(*Transform, &IMavrin2Transform::get_SmoothTime), -5);
    Transform->put_SmoothEnabled(3);
    EXPECT_EQ(Got(*Transform, &IMavrin2Transform::get_SmoothEnabled), 3);
    EXPECT_EQ(Calls(), "Time(-5)");
    OpenMono();
    Transform->Reverse();
    EXPECT_EQ(Calls(), "First(1) Second(1) Reverse(5) First(0) Second(0)");
}

TEST_F(TransformTest, NeedsASelectionAndTellsTheCompanionTheRate) {
    Forget();
    NewSound();
    EXPECT_EQ(Calls(), "Rate(1000)");
    OpenSound(Ramp(10));
    EXPECT_EQ(Calls(), "Abort Rate(1000)");
    Transform->Invert();
    Select(1, 2);
    Transform->MixStereoChannels(100, 0, 0, 100);
    EXPECT_EQ(Calls(), "") << "nothing is selected; the document is mono";
}

TEST_F(TransformTest, InsertsSilence) {
    OpenSound(Ramp(100));
    Position->put_StartSelect(30);
    Forget();
    Transform->InsertSilence(20);
    Samples expected = Ramp(100);
    expected.insert(expected.begin() + 30, 20, 0);
    EXPECT_EQ(DocumentSamples(), expected);
    EXPECT_EQ(Calls(), "");
    EXPECT_NE(Got(*Position, &interfaces::IMavrin2Position::get_Selected), 0);

    OpenStereo();
    Transform->InsertSilence(1);
    expected = Without(Ramp(200), 20, 28);
    expected.insert(expected.begin() + 20, 2, 0);
    EXPECT_EQ(DocumentSamples(), expected) << "in place of the selection";
    Transform->InsertSilence(-100);
    EXPECT_EQ(LastError(), 0);
}

}  // namespace
}  // namespace mavrin2::tests
