#include "companions/ontiva/files/numbers.h"
#include "tests/ontiva/sound_files.h"
#include "tests/support/damaged_files.h"
#include "tests/support/wanted_count.h"

namespace mavrin2::ontiva {
namespace {

// Damaged files of each kind.
int Variants() {
    return tests::WantedCount("MAVRIN2_DAMAGED_FILES", 60);
}

SoundInfo SomeInfo() {
    SoundInfo info;
    info.Texts.Set("TITLE", "title");
    info.Texts.Set("DATE", "2001-05-03");
    info.Pictures = {{3, "image/png", "cover", "data"}};
    info.Markers = {{1, 2, "one", "note", "text", {}}, {5, 0, "two", "", "", {}}};
    return info;
}

class DamagedKind : public EachKind {};

TEST_P(DamagedKind, IsReadOrRefused) {
    const std::string whole = WithInfo(Sound(4001), SomeInfo());
    void (*seal)(std::string&) = whole.starts_with("OggS") ? tests::SealOggPages : nullptr;
    tests::DamagedFiles damaged(whole, 12, seal);
    SoundInfo more = SomeInfo();
    more.Markers.push_back({9, 9, "three", "", "", {}});
    int written = 0;
    for (int i = 0; i < Variants(); ++i) {
        const std::string bytes = damaged.Next();
        BytesFile file(bytes);
        EditedFile edited(file);
        const auto format = FormatOf(edited, kLibraries);
        if (!format) continue;
        try {
            format->Read(edited);
            const std::string changed = WithInfo(bytes, more);
            ++written;
            EXPECT_EQ(ReadInfo(changed).Markers, more.Markers) << i;
        } catch (const FileFault&) {
        } catch (const NotWritable&) {
        }
    }
    EXPECT_GT(written, Variants() / 10);
}

INSTANTIATE_TEST_SUITE_P(Damage, DamagedKind, testing::ValuesIn(kKinds),
                         [](const auto& tested) { return tested.param.Name; });

}  // namespace
}  // namespace mavrin2::ontiva
