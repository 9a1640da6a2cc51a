#include "tests/control/settings_test.h"

namespace mavrin2::tests {
namespace {

using interfaces::IMavrin2Channel;
using interfaces::TypeViewConstants;

class Channel : public SettingsTest {
protected:
    IMavrin2Channel& Object() { return *Parts->Channels.Get(); }
    SHORT Value(HRESULT (STDMETHODCALLTYPE IMavrin2Channel::*get)(SHORT*)) {
        return Got(Object(), get);
    }
    // "visible/operation" of the document's channels.
    std::string Counts() {
        const editor::ChannelSwitches& switches = Parts->State.Channels;
        return std::to_string(switches.VisibleCount) + "/" +
               std::to_string(switches.OperationCount);
    }
    void New(std::int32_t channels) { Parts->Editor->Opening.New(8000, channels); }
};

TEST_F(Channel, IsNoneUntilAHostNamesOne) {
    OpenSamples(2);
    EXPECT_EQ(Value(&IMavrin2Channel::get_Num), 0);
    for (const SHORT num : {SHORT{0}, SHORT{11}, SHORT{32767}}) {
        if (num) Object().put_Num(num);
        EXPECT_EQ(Object().put_Visible(0), S_OK);
        EXPECT_EQ(Object().put_Operation(0), S_OK);
        EXPECT_EQ(Value(&IMavrin2Channel::get_Visible), 0) << num;
        EXPECT_EQ(Value(&IMavrin2Channel::get_Operation), 0) << num;
    }
    EXPECT_EQ(Counts(), "2/2");
    EXPECT_EQ(Redraws(), 0);
}

TEST_F(Channel, IsLimitedToTheDocumentsWhenItIsRead) {
    struct {
        std::int32_t Channels;
        SHORT Put, Got;
    } const cases[] = {{2, 5, 2}, {2, 1, 1}, {2, 0, 1}, {2, -32768, 1}, {1, 2, 1}};
    for (const auto& c : cases) {
        New(c.Channels);
        EXPECT_EQ(Value(&IMavrin2Channel::get_Count), c.Channels);
        Object().put_Num(c.Put);
        EXPECT_EQ(Value(&IMavrin2Channel::get_Num), c.Got) << c.Put;
    }
    // Until then it may name a channel that a longer document has.
    Object().put_Num(2);
    New(2);
    EXPECT_EQ(Value(&IMavrin2Channel::get_Num), 2);
}

TEST_F(Channel, IsHiddenAndShownAtOnce) {
    OpenSamples(2);
    Object().put_Num(2);
    const Image both = Shown();
    for (const auto type : {TypeViewConstants::SPECTRAL, TypeViewConstants::WAVEFORM}) {
        Parts->Editor->View.SetTypeView(type);
        Redraws();
        EXPECT_EQ(Object().put_Visible(1), S_OK);
        EXPECT_EQ(Redraws(), 0) << "as it is already";
        EXPECT_EQ(Object().put_Visible(0), S_OK);
        EXPECT_EQ(Redraws(), 1);
        EXPECT_EQ(Counts(), "1/2");
        EXPECT_TRUE(IsAsMadeAnew());
        EXPECT_EQ(Object().put_Visible(-1), S_OK);
        EXPECT_EQ(Value(&IMavrin2Channel::get_Visible), -1) << "as written";
        EXPECT_EQ(Counts(), "2/2");
        Object().put_Visible(1);
        EXPECT_TRUE(IsAsMadeAnew());
    }
    EXPECT_TRUE(Shown() == both);
}

TEST_F(Channel, IsLeftAloneByEditsAndDrawnSo) {
    OpenSamples(2);
    Object().put_Num(1);
    const Image both = Shown();
    EXPECT_EQ(Object().put_Operation(0), S_OK);
    EXPECT_EQ(Value(&IMavrin2Channel::get_Operation), 0);
    EXPECT_EQ(Counts(), "2/1");
    EXPECT_FALSE(Shown() == both);
    EXPECT_TRUE(IsAsMadeAnew());
    Object().put_Operation(0);
    EXPECT_EQ(Redraws(), 2) << "drawn again, changed or not";
    Object().put_Num(2);
    EXPECT_EQ(Value(&IMavrin2Channel::get_Operation), 1);
    Object().put_Operation(0);
    EXPECT_EQ(Counts(), "2/0");
    EXPECT_TRUE(IsAsMadeAnew());
}

TEST_F(Channel, IsCountedWithEveryDocument) {
    EXPECT_EQ(Counts(), "1/1");
    New(2);
    EXPECT_EQ(Counts(), "2/2");
    Object().put_Num(2);
    Object().put_Operation(0);
    Object().put_Visible(0);
    New(1);
    EXPECT_EQ(Counts(), "1/1");
    OpenSamples(2);
    EXPECT_EQ(Counts(), "1/1") << "flags outlive the document";
    Object().put_Operation(1);
    Parts->Editor->Opening.Close();
    EXPECT_EQ(Counts(), "1/2");
    EXPECT_EQ(Value(&IMavrin2Channel::get_Count), 2) << "as the last document had";
}

TEST_F(Channel, IsOfNoDocumentWithoutAControl) {
    const auto kept = Parts->Channels;
    Parts->Teardown();
    for (const auto& object : {kept, objects::CMavrin2Channel::Make()}) {
        EXPECT_EQ(object->put_Num(1), S_OK);
        EXPECT_EQ(object->put_Visible(0), S_OK);
        EXPECT_EQ(object->put_Operation(0), S_OK);
        EXPECT_EQ(object->get_Count(nullptr), E_POINTER);
        EXPECT_EQ(Got<SHORT>(*object, &objects::CMavrin2Channel::get_Count), 0);
    }
    EXPECT_EQ(Redraws(), 0);
}

}  // namespace
}  // namespace mavrin2::tests
