// The tags of FileInfo, and the wrapper that editor and object share.

#include "automation/text.h"
#include "tests/automation/late_call.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using interfaces::IMavrin2FileInfo;

class FileInfoTest : public ControlTest {
protected:
    editor::InformationCompanion& Companion() {
        return static_cast<objects::CMavrin2FileInfo*>(FileInfo.Get())->Extra().Companion;
    }
    std::string Title() {
        Bstr title;
        EXPECT_EQ(FileInfo->get_Title(title.Put()), S_OK);
        return title.Utf8();
    }
};

TEST_F(FileInfoTest, PassesEveryTagToTheCompanionsPropertyOfThatName) {
    const auto& description = automation::DescriptionOf<IMavrin2FileInfo>();
    for (const auto& member : description.Members) {
        if (member.Kind != INVOKE_PROPERTYPUT || member.Name == std::string("SaveExtraInfoEnabled"))
            continue;
        SCOPED_TRACE(member.Name);
        const VARTYPE type = member.Parameters.front().Type.Type;
        const Value value = type == VT_BSTR ? Value(std::string(member.Name) + " é")
                            : type == VT_I4 ? Value(LONG{-2001})
                                            : Value(SHORT{-1});
        EXPECT_EQ(
            LateCall(*FileInfo, member.Name, DISPATCH_PROPERTYPUT, {value}, {DISPID_PROPERTYPUT})
                .Status,
            S_OK);
        if (type == VT_BSTR)
            EXPECT_EQ(Value(Ontiva->Held.Texts[member.Name]), value);
        else
            EXPECT_EQ(Ontiva->Held.Numbers[member.Name], type == VT_I4 ? -2001 : -1);
        const LateCall got(*FileInfo, member.Name, DISPATCH_PROPERTYGET, std::vector<Value>());
        EXPECT_EQ(FromVariant(got.Result), value);
    }
    EXPECT_EQ(Ontiva->Held.Texts.size() + Ontiva->Held.Numbers.size(), 14u);
    const LateCall genre(*FileInfo, "GenreToString", DISPATCH_METHOD, {SHORT{-1}});
    EXPECT_EQ(FromVariant(genre.Result), Value("Genre -1"));
}

TEST_F(FileInfoTest, SucceedsWhateverTheCompanionDoes) {
    Ontiva->OnCall = [] { throw std::runtime_error("a companion of another maker"); };
    EXPECT_FALSE(Companion().ReadInfo("/sound.wav"));
    EXPECT_FALSE(Companion().WriteInfo("/sound.wav"));
    Ontiva->OnCall = [&] {
        Position.Reset();
        Control.Reset();
    };
    EXPECT_TRUE(Companion().ReadInfo("/sound.wav")) << "it lives until the call returns";
    EXPECT_EQ(Title(), "");
}

TEST_F(FileInfoTest, DoesNothingWithoutAControl) {
    FileInfo->put_Title(Bstr(std::string_view("a title")).Get());
    Position.Reset();
    Control.Reset();
    EXPECT_EQ(Title(), "") << "the companion is gone with the control";
    SHORT track = 7;
    EXPECT_EQ(FileInfo->get_Track(&track), S_OK);
    EXPECT_EQ(track, 7);
    EXPECT_EQ(FileInfo->put_Title(nullptr), S_OK);
}

TEST_F(FileInfoTest, GivesTheEditorTheMarkersOfAFile) {
    const std::vector<FakeOntiva::Marker> markers = {{5, 0, "cue", "", ""},
                                                     {1, 70, "é", "note", "text"}};
    Ontiva->Files["/a.wav"].Markers = markers;
    EXPECT_TRUE(Companion().ReadInfo("/a.wav"));
    std::vector<editor::StoredMarker> read;
    Companion().ForEachMarker([&](const auto& marker) { read.push_back(marker); });
    EXPECT_TRUE(Companion().RemoveMarkers());
    EXPECT_TRUE(Ontiva->Held.Markers.empty());
    for (const auto& marker : read)
        EXPECT_TRUE(Companion().AddMarker(marker));
    EXPECT_EQ(Ontiva->Held.Markers, markers);
}

TEST_F(FileInfoTest, GivesNoMarkersOfACompanionWhoseCountIsWrong) {
    for (const LONG count : {-1, 2000000000}) {
        Ontiva->ClaimedCount = count;
        EXPECT_FALSE(Companion().RemoveMarkers());
        Companion().ForEachMarker([](const auto&) { FAIL(); });
    }
    Ontiva->ClaimedCount = 2;
    EXPECT_FALSE(Companion().RemoveMarkers()) << "it never empties";
    Companion().ForEachMarker([](const auto&) { FAIL() << "it describes none"; });
}

}  // namespace
}  // namespace mavrin2::tests
