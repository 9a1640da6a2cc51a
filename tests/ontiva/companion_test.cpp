// The companion as a host calls it, and its files when the disk or memory fails.

#include <gmock/gmock.h>

#include "automation/text.h"
#include "companions/ontiva/information_companion.h"
#include "platform/memory/memory_replacement_files.h"
#include "tests/ontiva/sound_files.h"

namespace mavrin2::ontiva {
namespace {

using automation::Bstr;
using Operation = platform::MemoryFileSystem::Operation;
using I = contracts::IOntiva;

class Companion : public testing::Test {
protected:
    template <class Value>
    Value Get(HRESULT (STDMETHODCALLTYPE I::*member)(Value*)) {
        Value value{};
        EXPECT_EQ((object_.Get()->*member)(&value), S_OK);
        return value;
    }
    std::string Get(HRESULT (STDMETHODCALLTYPE I::*member)(BSTR*)) {
        Bstr text;
        (object_.Get()->*member)(text.Put());
        return text.Utf8();
    }
    void Put(HRESULT (STDMETHODCALLTYPE I::*member)(BSTR), const char* text) {
        EXPECT_EQ((object_.Get()->*member)(Bstr(std::string_view(text)).Get()), S_OK);
    }
    HRESULT Read(const char* path) { return object_->ReadInfo(Bstr(std::string_view(path)).Get()); }
    HRESULT Write(const char* path) {
        return object_->WriteInfo(Bstr(std::string_view(path)).Get());
    }
    void AddMarker(LONG position, LONG length, const char* label) {
        const Bstr text{std::string_view(label)};
        EXPECT_EQ(object_->InfoAddMarker(position, length, text.Get(), nullptr, text.Get(), 1, 2, 3,
                                         70000),
                  S_OK);
    }
    std::string Bytes(const char* path) { return disk_->Text(path).value_or("(none)"); }

    std::shared_ptr<platform::MemoryFileSystem> disk_ =
        std::make_shared<platform::MemoryFileSystem>();
    automation::ComPtr<InformationCompanion> object_ = InformationCompanion::Make(
        InfoFiles(disk_, std::make_shared<platform::MemoryReplacementFiles>(disk_),
                  std::make_unique<BackendLibraries>(tests::BuiltBackends("ontiva"))));
};

TEST_F(Companion, HoldsTextsThatStayAsTheyAreWhileTheirNumbersDo) {
    disk_->AddFile("/a.flac", MakeSound(SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 3000));
    SoundInfo info;
    info.Texts.Set("DATE", "2001-05-03");
    info.Texts.Set("TRACKNUMBER", "5/12");
    info.Texts.SetAll("ARTIST", {"One", "Two"});
    info.Texts.Set("GENRE", "jAZZ");
    disk_->AddFile("/b.flac", WithInfo(Bytes("/a.flac"), info));
    ASSERT_EQ(Read("/b.flac"), S_OK);
    EXPECT_EQ(Get(&I::get_Year), 2001);
    EXPECT_EQ(Get(&I::get_Track), 5);
    EXPECT_EQ(Get(&I::get_Genre), 8);
    EXPECT_EQ(Get(&I::get_Artist), "One; Two");
    object_->put_Year(2001);
    object_->put_Track(5);
    object_->put_Genre(8);
    Put(&I::put_Artist, "One; Two");
    ASSERT_EQ(Write("/a.flac"), S_OK);
    EXPECT_EQ(ReadInfo(Bytes("/a.flac")).Texts, ReadInfo(Bytes("/b.flac")).Texts);

    object_->put_Year(2002);
    object_->put_Track(0);
    object_->put_Genre(200);
    Put(&I::put_Artist, "Three");
    ASSERT_EQ(Write("/a.flac"), S_OK);
    const Fields texts = ReadInfo(Bytes("/a.flac")).Texts;
    EXPECT_EQ(texts.First("DATE"), "2002");
    EXPECT_EQ(texts.All("ARTIST"), Fields::Values{"Three"});
    EXPECT_EQ(texts.First("TRACKNUMBER") + texts.First("GENRE"), "");
    EXPECT_EQ(Get(&I::get_Genre), 255);
    Bstr name;
    EXPECT_EQ(object_->GenreToString(17, name.Put()), S_OK);
    EXPECT_EQ(name.Utf8(), "Rock");
    EXPECT_EQ(object_->GenreToString(-1, name.Put()), S_OK);
    EXPECT_EQ(name.Utf8(), "");
}

TEST_F(Companion, HoldsMarkersAndDropsAllBeforeReading) {
    disk_->AddFile("/a.wav", MakeSound(SF_FORMAT_WAV | SF_FORMAT_PCM_16, 3000));
    AddMarker(7, 9, "a\xE2\x82\xAC");
    AddMarker(-5, -6, "b");
    ASSERT_EQ(Write("/a.wav"), S_OK);
    EXPECT_EQ(ReadInfo(Bytes("/a.wav")).Markers,
              (std::vector<Marker>{{7, 9, "a\xE2\x82\xAC", "", "a\xE2\x82\xAC", {1, 2, 3, 4464}},
                                   {0, 0, "b", "", "b", {1, 2, 3, 4464}}}));
    ASSERT_EQ(Read("/a.wav"), S_OK);
    EXPECT_EQ(Get(&I::get_InfoMarkerCount), 2);
    EXPECT_EQ(object_->put_InfoMarkerNum(1), S_OK);
    EXPECT_EQ(Get(&I::get_InfoMarkerPosition), 7);
    EXPECT_EQ(Get(&I::get_InfoMarkerLength), 9);
    EXPECT_EQ(Get(&I::get_InfoMarkerLabel), "a\xE2\x82\xAC");
    EXPECT_EQ(Get(&I::get_InfoMarkerCodePage), 4464);
    for (const LONG none : {0, 3, -1}) {
        EXPECT_NE(object_->put_InfoMarkerNum(none), S_OK);
        LONG position = -1;
        EXPECT_NE(object_->get_InfoMarkerPosition(&position), S_OK);
        EXPECT_EQ(position, 0);
    }
    Put(&I::put_Title, "held");
    EXPECT_NE(Read("/missing.wav"), S_OK);
    EXPECT_EQ(Get(&I::get_InfoMarkerCount), 0);
    EXPECT_EQ(Get(&I::get_Title), "");

    // Switched off, it touches nothing.
    object_->put_InfoSwitch(0);
    AddMarker(1, 1, "x");
    const std::string before = Bytes("/a.wav");
    EXPECT_EQ(Write("/a.wav"), S_OK);
    EXPECT_EQ(Bytes("/a.wav"), before);
    EXPECT_EQ(Read("/a.wav"), S_OK);
    EXPECT_EQ(Get(&I::get_InfoMarkerCount), 0);
}

TEST_F(Companion, WritesTheVersionOfTagsThatIsAskedFor) {
    disk_->AddFile("/a.mp3", MakeSound(SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III, 3000));
    ASSERT_EQ(Read("/a.mp3"), S_OK);
    EXPECT_EQ(Get(&I::get_Mp3TagInfoVersion), 0);
    Put(&I::put_Title, "title");
    for (const SHORT version : {3, 4, 2}) {
        object_->put_Mp3TagInfoVersion(version);
        EXPECT_EQ(Get(&I::get_Mp3TagInfoVersion), version);
        ASSERT_EQ(Write("/a.mp3"), S_OK);
        EXPECT_EQ(Bytes("/a.mp3")[3], version == 4 ? 4 : 3);
        const std::string end = Bytes("/a.mp3").substr(Bytes("/a.mp3").size() - 128);
        EXPECT_TRUE(end.starts_with("TAGtitle"));
    }
}

TEST_F(Companion, LeavesAloneWhatHoldsNoTags) {
    const std::string noise(20000, '\x5A');
    disk_->AddFile("/a.vox", noise);
    EXPECT_EQ(Write("/a.vox"), S_OK) << "there is nothing to write";
    AddMarker(1, 1, "x");
    EXPECT_NE(Write("/a.vox"), S_OK);
    EXPECT_EQ(Bytes("/a.vox"), noise);
    EXPECT_EQ(disk_->Files().size(), 1U);
}

// Each opening, read, write and name, and the room on the disk, fail in turn.
TEST_F(Companion, ChangesAFileWhollyOrNotAtAll) {
    Put(&I::put_Title, "title");
    AddMarker(1, 2, "marker");
    for (const Kind& kind : kKinds) {
        const std::string sound = MakeSound(kind.Format, 3000);
        disk_->AddFile("/a", sound);
        const Judged judged = Judge(sound);
        // `unlike`: the file may have other bytes afterwards, but not other contents.
        const auto tryOnce = [&](const std::string& what, bool unlike = false) {
            const bool written = SUCCEEDED(Write("/a"));
            disk_->FailNothing();
            disk_->SetFreeSpace(std::nullopt);
            EXPECT_EQ(disk_->Files().size(), 1U) << kind.Name << what;
            EXPECT_EQ(disk_->OpenFiles(), 0) << kind.Name << what;
            EXPECT_EQ(ReadInfo(Bytes("/a")).Markers.size(), written ? 1U : 0U) << kind.Name << what;
            EXPECT_TRUE(written || unlike || Bytes("/a") == sound) << kind.Name << what;
            EXPECT_EQ(Judge(Bytes("/a")).Samples, judged.Samples) << kind.Name << what;
            disk_->AddFile("/a", sound);
            return written;
        };
        for (const std::int64_t room : {0, 1, 100}) {
            disk_->SetFreeSpace(room);
            EXPECT_FALSE(tryOnce(" full"));
        }
        int failures = 0;
        for (const auto operation :
             {Operation::Open, Operation::Create, Operation::Read, Operation::Write}) {
            const std::string name = " " + std::to_string(static_cast<int>(operation));
            for (int nth = 1;; ++nth, ++failures) {
                disk_->FailNth(operation, nth);
                if (tryOnce(name)) break;
            }
            for (int nth = 1;; ++nth) {
                disk_->FailFrom(operation, nth);
                if (tryOnce(name + " and further ones", operation == Operation::Write)) break;
            }
        }
        EXPECT_GT(failures, 4);
    }
}

}  // namespace
}  // namespace mavrin2::ontiva
