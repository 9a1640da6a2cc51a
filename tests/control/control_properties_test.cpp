#include "automation/text.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using interfaces::IMavrin2;
using interfaces::IMavrin2FileInfo;

class ControlProperties : public ControlTest {
protected:
    void PutTempDirectory(const char* path) {
        EXPECT_EQ(Control->put_TempDirectory(Bstr(std::string_view(path)).Get()), S_OK);
    }
    // The control keeps one object, gives it as often as it is asked for it, and takes another.
    template <class Interface>
    void ExpectKept(HRESULT (STDMETHODCALLTYPE IMavrin2::*get)(Interface**),
                    HRESULT (STDMETHODCALLTYPE IMavrin2::*put)(Interface*), Interface* another) {
        const auto held = [&] {
            ComPtr<Interface> object;
            EXPECT_EQ((Control.Get()->*get)(object.Put()), S_OK);
            return object;
        };
        const auto first = held();
        ASSERT_TRUE(first);
        EXPECT_EQ(held().Get(), first.Get());
        EXPECT_EQ((Control.Get()->*put)(nullptr), S_OK);
        EXPECT_EQ(held().Get(), first.Get());
        EXPECT_EQ((Control.Get()->*put)(another), S_OK);
        EXPECT_EQ(held().Get(), another);
    }
    std::filesystem::path TempFileName() {
        Bstr name;
        EXPECT_EQ(Control->get_TempFileName(name.Put()), S_OK);
        return name.Utf8();
    }
};

TEST_F(ControlProperties, BeginWithTheirDefaults) {
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(LastError(), 0);
    EXPECT_EQ(WorkFile(), "/tmp/private/") << "the folder, without a document";
    EXPECT_EQ(TempFileName(), "/tmp/private/KovClipBoard.wav");
    EXPECT_EQ(FormatString(), "");
    EXPECT_EQ(static_cast<int>(Got(*FileInfo, &IMavrin2FileInfo::get_Frequency)), 8000);
    EXPECT_EQ(static_cast<int>(Got(*FileInfo, &IMavrin2FileInfo::get_Channels)), 1);
    EXPECT_EQ(Got(*FileInfo, &IMavrin2FileInfo::get_SaveExtraInfoEnabled), 1);
    EXPECT_EQ(Got(*Control, &IMavrin2::get_UndoEnabled), 0);
    EXPECT_EQ(Got(*Control, &IMavrin2::get_RedoEnabled), 0);
    FileInfo->put_SaveExtraInfoEnabled(-1);
    EXPECT_EQ(Got(*FileInfo, &IMavrin2FileInfo::get_SaveExtraInfoEnabled), -1) << "as given";
    EXPECT_EQ(Control->get_Status(nullptr), E_POINTER);
}

TEST_F(ControlProperties, AreObjectsThatAHostMayReplace) {
    const auto colors = objects::CMavrin2Colors::Make(0u);
    const auto scale = objects::CMavrin2Scale::Make();
    ExpectKept<interfaces::IMavrin2Colors>(&IMavrin2::get_Colors, &IMavrin2::put_Colors,
                                           colors.Get());
    ExpectKept<interfaces::IMavrin2Scale>(&IMavrin2::get_ScaleX, &IMavrin2::put_ScaleX,
                                          scale.Get());
    ExpectKept<interfaces::IMavrin2Scale>(&IMavrin2::get_ScaleY, &IMavrin2::put_ScaleY,
                                          scale.Get());
    ComPtr<interfaces::IMavrin2Channel> channels;
    ComPtr<interfaces::IMavrin2Channel> again;
    EXPECT_EQ(Control->get_Channels(channels.Put()), S_OK);
    EXPECT_EQ(Control->get_Channels(again.Put()), S_OK);
    EXPECT_TRUE(channels && channels.Get() == again.Get());
}

TEST_F(ControlProperties, OfTheViewAreKeptAsFarAsTheyMakeSense) {
    EXPECT_EQ(Got(*Control, &IMavrin2::get_TypeBorder), 1);
    EXPECT_EQ(Control->put_TypeBorder(-77), S_OK);
    EXPECT_EQ(Got(*Control, &IMavrin2::get_TypeBorder), -77);
    using interfaces::TypeViewConstants;
    EXPECT_EQ(Got(*Control, &IMavrin2::get_TypeView), TypeViewConstants::WAVEFORM);
    EXPECT_EQ(Control->put_TypeView(TypeViewConstants::SPECTRAL), S_OK);
    EXPECT_EQ(Got(*Control, &IMavrin2::get_TypeView), TypeViewConstants::SPECTRAL);
    Dusoro->Source.Samples = Ramp(1000);
    Events->InEvent(1, [&] { Control->put_TypeView(TypeViewConstants::EXPANDED); });
    Open();
    EXPECT_TRUE(Events->Acted());
    EXPECT_EQ(Got(*Control, &IMavrin2::get_TypeView), TypeViewConstants::SPECTRAL) << "it was busy";
}

TEST_F(ControlProperties, KeepNumbersWithinTheirRanges) {
    struct {
        HRESULT (STDMETHODCALLTYPE IMavrin2::*Put)(LONG);
        HRESULT (STDMETHODCALLTYPE IMavrin2::*Get)(LONG*);
        LONG AtFirst;
        std::vector<std::pair<LONG, LONG>> Values;
    } const cases[] = {
        {&IMavrin2::put_FileBufferSize,
         &IMavrin2::get_FileBufferSize,
         10001,
         {{50, 100}, {-1, 100}, {100, 100}, {5000, 5000}, {600000, 600000}, {700000, 600000}}},
        {&IMavrin2::put_UndoRedoCount,
         &IMavrin2::get_UndoRedoCount,
         999,
         {{0, 1}, {-5, 1}, {1, 1}, {10000, 10000}, {20000, 10000}, {0x7FFFFFFF, 10000}}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Got(*Control, c.Get), c.AtFirst);
        for (const auto& [put, got] : c.Values) {
            EXPECT_EQ((Control.Get()->*c.Put)(put), S_OK);
            EXPECT_EQ(Got(*Control, c.Get), got) << put;
        }
    }
    EXPECT_EQ(History().Limit(), 10001) << "the current version is one more than can be undone";
}

TEST_F(ControlProperties, TakeTheFolderOfAPathForTemporaryFiles) {
    System.Files->AddFolder("/other/deep");
    PutTempDirectory("/other/deep/");
    EXPECT_EQ(WorkFile(), "/other/deep/");
    PutTempDirectory("/other/deep");
    EXPECT_EQ(WorkFile(), "/other/") << "a name without a separator after it is a file's";
    for (const char* refused : {"/missing/", "name", ""}) {
        PutTempDirectory(refused);
        EXPECT_EQ(WorkFile(), "/other/") << refused;
        EXPECT_EQ(LastError(), 0);
    }
    EXPECT_EQ(TempFileName(), "/tmp/private/KovClipBoard.wav");
    NewSound();
    EXPECT_EQ(WorkFile().parent_path(), "/other");
    EXPECT_TRUE(WorkFile().filename().string().starts_with("nct"));
    EXPECT_EQ(WorkFile().extension(), ".tmp");
}

TEST_F(ControlProperties, CleanAFolderThatIsChosenWhenNothingIsOpenAndNoOtherInstanceLives) {
    const auto left = [&](const char* folder) {
        System.Files->AddFile(std::string(folder) + "nct12ab.tmp", "left by a crash");
        System.Files->AddFile(std::string(folder) + "nct12ab.wav", "another program's");
        System.Files->AddFile(std::string(folder) + "other.tmp", "another program's");
        PutTempDirectory(folder);
        return System.Files->List(folder, "", "").size() == 3;
    };
    EXPECT_FALSE(left("/a/"));
    EXPECT_EQ(System.Files->List("/a/", "", "").size(), 2u);
    NewSound();
    EXPECT_TRUE(left("/b/")) << "a document is open";
    Control->Close();
    const auto another = server::CMavrin2::Make(Environment());
    EXPECT_TRUE(left("/c/")) << "another control is alive";
    EXPECT_EQ(WorkFile(), "/c/");
}

TEST_F(ControlProperties, TakeANameThatEndsInWavForTheClipFile) {
    struct {
        const char* Name;
        bool Taken;
    } const cases[] = {{"/x/clip.WAV", true},
                       {"/x/a.mp3.wav", true},
                       {"/x/clip.mp3", false},
                       {"/x/clipwav", false},
                       {"", false},
                       {"/x.wav/clip", false}};
    for (const auto& c : cases) {
        const std::filesystem::path before = TempFileName();
        EXPECT_EQ(Control->put_TempFileName(Bstr(std::string_view(c.Name)).Get()), S_OK);
        EXPECT_EQ(TempFileName(), c.Taken ? std::filesystem::path(c.Name) : before) << c.Name;
    }
    EXPECT_EQ(LastError(), 0);
}

}  // namespace
}  // namespace mavrin2::tests
