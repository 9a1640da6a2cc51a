#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "automation/event_sink.h"
#include "automation/safe_array.h"
#include "automation/text.h"
#include "companions/pindle/grabber_companion.h"
#include "tests/support/built_backends.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::pindle {
namespace {

using Samples = std::vector<std::int16_t>;

// A drive whose disc has one track, the sectors of which fail when a test says so.
class FakeDisc final : public Disc, public DiscLibrary {
public:
    const std::vector<Track>& Tracks() const override { return tracks_; }
    bool Read(std::int32_t first, std::span<std::int16_t> samples, bool) override {
        std::fill(samples.begin(), samples.end(), static_cast<std::int16_t>(first));
        return Failures-- <= 0;
    }
    std::vector<std::string> Devices() const override { return {"/dev/fake"}; }
    std::unique_ptr<Disc> Open(const std::string&) const override {
        return std::make_unique<FakeDisc>();
    }

    static inline int Failures = 0;

private:
    std::vector<Track> tracks_ = {{1, 150, 60, true}};
};

class Grabber : public testing::Test {
protected:
    // Opens the image of a disc with these tracks; `file` is what its sound is.
    void Open(const std::string& tracks, const Samples& sound) {
        const auto name = folder_.Path() / "disc.cue";
        std::ofstream(name) << "FILE \"disc.bin\" BINARY\n" << tracks;
        std::ofstream(folder_.Path() / "disc.bin", std::ios::binary)
            .write(reinterpret_cast<const char*>(sound.data()),
                   static_cast<std::streamsize>(sound.size() * 2));
        image_ = name.string();
        ASSERT_EQ(grabber_->GrabberInit(), S_OK);
        ASSERT_EQ(grabber_->put_DriveNum(1), S_OK);
        grabber_->OpenDrive();
    }

    LONG Prepare(LONG track) {
        grabber_->put_TrackIndex(track - 1);
        LONG status = -1;
        EXPECT_EQ(grabber_->PrepareTrack(&status), S_OK);
        return status;
    }
    // The block, and whether it was read.
    std::pair<Samples, LONG> Block(LONG count) {
        automation::SafeArray<std::int16_t> block;
        LONG read = -1;
        LONG status = -1;
        grabber_->ReadBlock(count, block.Put(), &read, &status);
        const automation::ArrayView<std::int16_t> view(block.Get());
        EXPECT_EQ(view.Elements().size(), static_cast<std::size_t>(read) * kSectorValues);
        return {{view.Elements().begin(), view.Elements().end()}, status};
    }
    Samples ReadTrack() {
        Samples all;
        grabber_->StartReading(0);
        for (;;) {
            const auto [samples, status] = Block(26);
            EXPECT_EQ(status, 0);
            if (samples.empty() || status != 0) return all;
            all.insert(all.end(), samples.begin(), samples.end());
        }
    }
    // Calls `handler` with each percentage.
    void Listen(std::function<void(LONG)> handler) {
        const auto receive = [handler](DISPID, const automation::EventArguments& arguments) {
            LONG percent = -1;
            arguments.Read(0, percent);
            handler(percent);
            return S_OK;
        };
        ASSERT_EQ(events_.Open(grabber_.Get(), contracts::DIID_IPindleCD2Events, receive), S_OK);
    }

    static Samples Noise(std::size_t sectors) {
        Samples samples(sectors * kSectorValues);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<std::int16_t>(i * 2654435761U >> 13);
        return samples;
    }

    tests::ScratchFolder folder_;
    std::string image_;
    std::string reason_;
    const DiscLibrary* library_ =
        tests::BuiltBackends("pindle")->Find<DiscLibrary>("cdio", "DiscLibrary", reason_);
    automation::ComPtr<GrabberCompanion> grabber_ =
        GrabberCompanion::Make(GrabberServices{[this] { return library_; },
                                               [this](const DiscLibrary&) {
                                                   return DriveSources{{}, {}, image_};
                                               }});
    automation::EventConnection events_;
};

constexpr char kTwoTracks[] =
    "TRACK 01 AUDIO\nINDEX 01 00:00:00\nTRACK 02 AUDIO\nINDEX 01 00:01:00\n";

TEST_F(Grabber, DeliversEachTrackOfAnImageExactly) {
    const Samples sound = Noise(75 + 130);
    Open(kTwoTracks, sound);
    std::vector<LONG> percents;
    Listen([&](LONG percent) { percents.push_back(percent); });
    for (const LONG mode : {0, 1}) {
        grabber_->put_ReadMode(mode);
        ASSERT_EQ(Prepare(1), 0);
        EXPECT_EQ(ReadTrack(), Samples(sound.begin(), sound.begin() + 75 * kSectorValues));
        ASSERT_EQ(Prepare(2), 0);
        LONG sectors = 0;
        LONG values = 0;
        LONG first = 0;
        grabber_->get_TrackSizeFactor1(&sectors);
        grabber_->get_TrackSizeFactor2(&values);
        grabber_->get_TrackInfo3(&first);
        EXPECT_EQ(std::vector({sectors, values, first}), std::vector<LONG>({130, 1176, 75}));
        EXPECT_EQ(ReadTrack(), Samples(sound.begin() + 75 * kSectorValues, sound.end()));
    }
    EXPECT_EQ(std::vector<LONG>(percents.end() - 6, percents.end()),
              (std::vector<LONG>{20, 40, 60, 80, 100, 100}));
}

TEST_F(Grabber, RefusesWhatIsNoTrackOfSound) {
    Open("TRACK 01 AUDIO\nINDEX 01 00:00:00\nTRACK 02 MODE1/2352\nINDEX 01 00:01:00\n",
         Noise(75 + 10));
    EXPECT_EQ(Prepare(1), 0);
    for (const LONG track : {0, 2, 3, 100, -5, INT32_MAX})
        EXPECT_NE(Prepare(track), 0) << track;
    EXPECT_NE(grabber_->StartReading(0), S_OK);
    EXPECT_NE(Block(26).second, 0);
    grabber_->GrabberClose();
    EXPECT_NE(Prepare(1), 0);

    Open(kTwoTracks, Noise(30));  // cut short in the first track
    EXPECT_NE(Prepare(2), 0);
    image_ = (folder_.Path() / "missing.cue").string();
    EXPECT_EQ(grabber_->GrabberInit(), S_OK);
    EXPECT_NE(grabber_->OpenDrive(), S_OK);
    EXPECT_NE(Prepare(1), 0);
    image_.clear();
    grabber_->GrabberInit();
    SHORT drives = -1;
    grabber_->get_DriveCount(&drives);
    EXPECT_EQ(drives, 0);
    EXPECT_NE(grabber_->OpenDrive(), S_OK);
}

TEST_F(Grabber, TriesTheSameSectorsAgainAfterAFailure) {
    const FakeDisc fake;
    library_ = &fake;
    image_ = "/any";
    grabber_->GrabberInit();
    grabber_->OpenDrive();
    ASSERT_EQ(Prepare(1), 0);
    FakeDisc::Failures = 10;
    grabber_->StartReading(0);
    for (int i = 0; i < 10; ++i) {
        const auto [samples, status] = Block(26);
        EXPECT_TRUE(samples.empty() && status != 0);
    }
    EXPECT_EQ(Block(26).first.front(), 150);
    EXPECT_EQ(Block(26).first.front(), 176);
    EXPECT_EQ(Block(26).first.size(), 8U * kSectorValues);
    EXPECT_EQ(Block(26), (std::pair<Samples, LONG>({}, 0)));
}

TEST_F(Grabber, MayBeClosedAndLetGoWhileItTellsProgress) {
    Open(kTwoTracks, Noise(75 + 130));
    Listen([this](LONG) {
        events_.Close();
        grabber_->GrabberClose();
        grabber_.Reset();
    });
    ASSERT_EQ(Prepare(2), 0);
    grabber_->StartReading(0);
    automation::SafeArray<std::int16_t> block;
    LONG read = 0;
    LONG status = -1;
    GrabberCompanion* grabber = grabber_.Get();
    EXPECT_EQ(grabber->ReadBlock(26, block.Put(), &read, &status), S_OK);
    EXPECT_EQ(read, 26);
}

TEST(DriveList, NamesADriveByItsDeviceItsFoldersAndImagesByTheirPaths) {
    const auto drives = ListDrives({{"/dev/sr8", "/dev/sr9"},
                                    "proc /proc proc rw 0 0\n"
                                    "/dev/sr9 /media/My\\040Disc iso9660 ro 0 0\n"
                                    "/dev/sr9 /mnt iso9660 ro 0 0\n"
                                    "/dev/sda1 / ext4 rw 0 0\nshort",
                                    "/images/a.cue::/images/b.nrg"});
    std::vector<std::string> found;
    for (const Drive& drive : drives)
        found.push_back(drive.Name + " " + drive.Source);
    EXPECT_EQ(found,
              (std::vector<std::string>{
                  "/dev/sr8 /dev/sr8", "/dev/sr9 /dev/sr9", "/media/My Disc /dev/sr9",
                  "/mnt /dev/sr9", "/images/a.cue /images/a.cue", "/images/b.nrg /images/b.nrg"}));
}

}  // namespace
}  // namespace mavrin2::pindle
