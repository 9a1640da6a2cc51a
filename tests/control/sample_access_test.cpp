#include "automation/safe_array.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using Array = automation::SafeArray<std::int16_t>;

class SampleArraysTest : public ControlTest {
protected:
    Samples Get(LONG frames) {
        Array array;
        EXPECT_EQ(Control->GetAudioArray(frames, array.Put()), S_OK);
        hasArray_ = array.Get() != nullptr;
        const automation::ArrayView<std::int16_t> view(array.Get());
        return {view.Elements().begin(), view.Elements().end()};
    }
    bool hasArray_ = false;
};

TEST_F(SampleArraysTest, GiveWhatFollowsTheSelectionsStart) {
    EXPECT_TRUE(Get(5).empty() && !hasArray_) << "without a document";
    OpenSound(Ramp(2000), 2);
    Select(100, 101);
    EXPECT_EQ(Get(1000), Ramp(1800, 200)) << "less at the end";
    EXPECT_EQ(Get(3), Ramp(6, 200));
    for (const LONG none : {0, -5}) {
        EXPECT_TRUE(Get(none).empty());
        EXPECT_TRUE(hasArray_);
    }
    EXPECT_EQ(Get(0x7FFFFFFF).size(), 1800u);
    Position->put_Selected(0);
    Position->put_StartSelect(1000);
    EXPECT_TRUE(Get(5).empty() && hasArray_);
    EXPECT_EQ(LastError(), 0);

    Events->InEvent(2, [&] { Get(5); });
    Save();
    EXPECT_TRUE(Events->Acted() && !hasArray_) << "the control was busy";
    System.Files->FailNth(platform::MemoryFileSystem::Operation::Read, 4);
    Position->put_StartSelect(0);
    EXPECT_TRUE(Get(5).empty() && !hasArray_);
    EXPECT_EQ(LastError(), -18);
    EXPECT_EQ(Control->GetAudioArray(5, nullptr), E_POINTER);
}

TEST_F(SampleArraysTest, TakeThePlaceOfTheSelection) {
    OpenThousand();
    Select(500, 600);
    PutAudioArray({1, 2, 3});
    EXPECT_EQ(Events->Take(), "10% 20% 30% 40% 50% 70% 80% 90% 100% 100% end");
    EXPECT_EQ(Positions(), "selected 500..502 view 0..903 of 903");
    Samples expected = Without(Ramp(1000), 500, 600);
    expected.insert(expected.begin() + 500, {1, 2, 3});
    EXPECT_EQ(DocumentSamples(), expected);

    Control->Undo();
    Position->put_Selected(0);
    PutAudioArray(Samples(10));
    EXPECT_EQ(Positions(), "select 500..509 view 0..1010 of 1010") << "inserted";
    PutAudioArray({});
    SAFEARRAY* null = nullptr;
    EXPECT_EQ(Control->PutAudioArray(&null), S_OK);
    EXPECT_EQ(LastError(), 0);
    SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 0, 2);
    EXPECT_EQ(Control->PutAudioArray(&texts), S_OK);
    SafeArrayDestroy(texts);
    EXPECT_EQ(LastError(), -20);
    EXPECT_EQ(DocumentSamples().size(), 1010u);
    EXPECT_EQ(Control->PutAudioArray(nullptr), E_POINTER);
}

class Converting : public ControlTest {
protected:
    void Convert(LONG frequency, LONG channels) {
        EXPECT_EQ(Control->ConvertSampleType(interfaces::FrequencyConstants{frequency},
                                             interfaces::ChannelsConstants{channels}),
                  S_OK);
    }
    std::string Format() {
        const auto number = [](auto value) { return std::to_string(static_cast<int>(value)); };
        return number(Got(*FileInfo, &interfaces::IMavrin2FileInfo::get_Frequency)) + " " +
               number(Got(*FileInfo, &interfaces::IMavrin2FileInfo::get_Channels));
    }
};

TEST_F(Converting, MakesAVersionOfTheNewFormat) {
    struct {
        LONG Frequency, Channels;
    } const cases[] = {{500, 1}, {1000, 1}, {8000, 2}, {44100, 1}, {999, 2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Frequency);
        const Samples samples = Ramp(1010);
        OpenSound(samples, 2);
        const Samples expected = Converted(samples, {1000, 2}, {c.Frequency, c.Channels}, 200);
        Select(100, 200);
        Position->put_StartView(50);
        Events->Take();
        Convert(c.Frequency, c.Channels);
        EXPECT_EQ(Events->Take(), "19% 39% 59% 79% 99% 100% end");
        EXPECT_EQ(System.Files->Bytes(WorkFile()),
                  WorkFileOf(static_cast<std::uint32_t>(c.Frequency),
                             static_cast<std::uint16_t>(c.Channels), expected));
        EXPECT_EQ(Format(), std::to_string(c.Frequency) + " " + std::to_string(c.Channels));
        const std::string frames =
            std::to_string(expected.size() / static_cast<std::size_t>(c.Channels));
        EXPECT_EQ(Positions(), "select 0..0 view 0.." + frames + " of " + frames);

        // Which steps are undone is left to the last edit.
        Control->Undo();
        EXPECT_EQ(DocumentSamples(), expected);
        EXPECT_TRUE(UndoEnabled());
        Delete(0, 1);
        Control->Undo();
        Control->Undo();
        EXPECT_EQ(Format(), "1000 2");
        EXPECT_EQ(DocumentSamples(), samples);
        EXPECT_EQ(Positions(), "selected 100..200 view 50..505 of 505");
    }
}

TEST_F(Converting, ChangesNothingWhenThereIsNoNeedOrNoSuchFormat) {
    Convert(8000, 2);
    EXPECT_EQ(Format(), "8000 1") << "without a document";
    OpenThousand();
    for (const auto& [frequency, channels, error] :
         {std::tuple(1000, 1, 0), {0, 1, -13}, {-8000, 1, -13}, {8000, 0, -13}, {8000, 3, -13}}) {
        Convert(frequency, channels);
        EXPECT_EQ(LastError(), error);
        EXPECT_EQ(Events->Take(), "");
        EXPECT_FALSE(UndoEnabled());
    }
    std::int32_t statusInside = 0;
    Events->InEvent(1, [&] { statusInside = Status(); });
    Convert(8000, 2);
    EXPECT_EQ(statusInside, 20);
}

}  // namespace
}  // namespace mavrin2::tests
