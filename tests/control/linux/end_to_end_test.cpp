// The components as they were built, found through their registry, with files of the system.

#include <algorithm>
#include <fstream>
#include <random>

#include "automation/text.h"
#include "tests/control/control_test.h"
#include "tests/support/child_process.h"
#include "tests/support/damaged_files.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using interfaces::FormatTypeConstants;
using interfaces::IMavrin2;

class EndToEnd : public testing::Test {
protected:
    EndToEnd() { std::filesystem::create_directory(In("tmp")); }

    std::filesystem::path In(const std::string& name) const { return folder_.Path() / name; }
    std::string Bytes(const std::string& name) const {
        std::ifstream file(In(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Write(const std::string& name, std::string_view bytes) const {
        std::ofstream(In(name), std::ios::binary).write(bytes.data(), std::ssize(bytes));
    }

    static ComPtr<IMavrin2> NewControl() {
        ComPtr<IMavrin2> control;
        EXPECT_EQ(CoCreateInstance(interfaces::CLSID_Mavrin2, nullptr, CLSCTX_INPROC_SERVER,
                                   interfaces::IID_IMavrin2, control.PutVoid()),
                  S_OK);
        return control;
    }
    HRESULT Open(IMavrin2& control, const std::string& name) const {
        return control.Open(Bstr(std::string_view(In(name).native())).Get(),
                            FormatTypeConstants::DEFAULT);
    }
    HRESULT Save(IMavrin2& control, const std::string& name, VARIANT_BOOL selected = 0) const {
        return control.Save(Bstr(std::string_view(In(name).native())).Get(), selected,
                            FormatTypeConstants::DEFAULT);
    }
    static std::filesystem::path WorkFile(IMavrin2& control) {
        Bstr path;
        control.get_TempDirectory(path.Put());
        return path.Utf8();
    }
    static LONG Length(IMavrin2& control) {
        ComPtr<interfaces::IMavrin2Position> position;
        control.get_Position(position.Put());
        LONG frames = 0;
        position->get_TotalSamples(&frames);
        return frames;
    }
    static void DeleteFrames(IMavrin2& control, LONG first, LONG end) {
        ComPtr<interfaces::IMavrin2Position> position;
        control.get_Position(position.Put());
        position->put_StartSelect(first);
        position->put_Selected(-1);
        position->put_EndSelect(end);
        EXPECT_EQ(control.DeleteSelect(), S_OK);
    }
    std::size_t TempFiles() const {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(In("tmp")))
            count += entry.path().extension() == ".tmp";
        return count;
    }

    // Stereo noise as a WAV file.
    void MakeSound(const std::string& name, std::size_t frames) const {
        Samples samples(frames * 2);
        std::mt19937 random(7);
        std::ranges::generate(samples,
                              [&] { return static_cast<std::int16_t>(random() % 12000 - 6000); });
        const auto bytes = WorkFileOf(44100, 2, samples);
        Write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

private:
    ScratchFolder folder_;
    EnvironmentVariable registry_{"MAVRIN2_REGISTRY", MAVRIN2_REGISTRY};
    EnvironmentVariable temporary_{"TMPDIR", In("tmp").string()};
};

TEST_F(EndToEnd, ASoundIsOpenedCutUndoneAndSavedInEveryFormat) {
    MakeSound("first.wav", 44100);
    const auto control = NewControl();
    for (const std::string format : {"flac", "ogg", "mp3", "wav"}) {
        SCOPED_TRACE(format);
        ASSERT_EQ(Open(*control, "first.wav"), S_OK);
        EXPECT_EQ(Length(*control), 44100);
        const std::string work = WorkFile(*control).native();
        DeleteFrames(*control, 10000, 20000);
        EXPECT_EQ(Length(*control), 34100);
        EXPECT_EQ(control->Undo(), S_OK);
        EXPECT_EQ(WorkFile(*control), work);
        ASSERT_EQ(Save(*control, "whole." + format), S_OK);
        ASSERT_EQ(Save(*control, "part." + format, -1), S_OK);

        ASSERT_EQ(Open(*control, "part." + format), S_OK);
        EXPECT_EQ(Length(*control), 10000);
        ASSERT_EQ(Open(*control, "whole." + format), S_OK);
        EXPECT_EQ(Length(*control), 44100);
        if (format == "flac" || format == "wav") {
            std::filesystem::copy_file(WorkFile(*control), In("copy." + format));
            EXPECT_EQ(Bytes("copy." + format), Bytes("first.wav"));
        }
    }
}

TEST_F(EndToEnd, FailuresComeWithTheirStatusAndChangeNothing) {
    MakeSound("first.wav", 1000);
    Write("empty.wav", "");
    Write("text.mp3", "This is no sound at all.");
    const auto control = NewControl();
    for (const char* name : {"empty.wav", "text.mp3", "missing.wav", "tmp"}) {
        EXPECT_TRUE(FAILED(Open(*control, name))) << name;
        EXPECT_EQ(Length(*control), 0);
    }
    ASSERT_EQ(Open(*control, "first.wav"), S_OK);
    EXPECT_EQ(static_cast<std::uint32_t>(Save(*control, "missing/out.wav")), 0x80040309u);
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(GetErrorInfo(0, error.Put()), S_OK);
    Bstr source;
    Bstr description;
    error->GetSource(source.Put());
    error->GetDescription(description.Put());
    EXPECT_EQ(source.Utf8(), "KovMavrin2.Mavrin2.2");
    EXPECT_EQ(description.Utf8(), "File Access error.");
    EXPECT_EQ(Length(*control), 1000);
}

TEST_F(EndToEnd, TheFilesOfAKilledProcessAreRemovedByASoleControlOnly) {
    Signal made;
    Signal never;
    ChildProcess child([&] {
        const auto control = NewControl();
        control->New(interfaces::FrequencyConstants::FQ_44_KHZ,
                     interfaces::ChannelsConstants::STEREO);
        made.Give();
        never.Await();
        return 0;
    });
    ASSERT_TRUE(made.Await());
    EXPECT_EQ(TempFiles(), 1u);
    {
        const auto second = NewControl();
        EXPECT_EQ(TempFiles(), 1u) << "it is in use";
        child.Kill();
        const auto third = NewControl();
        EXPECT_EQ(TempFiles(), 1u) << "the second may have files too";
    }
    EXPECT_EQ(TempFiles(), 1u);
    const auto sole = NewControl();
    EXPECT_EQ(TempFiles(), 0u);
}

class DamagedSounds : public EndToEnd, public testing::WithParamInterface<const char*> {};

TEST_P(DamagedSounds, EndInADocumentOrInNone) {
    constexpr int kVariants = 520;
    const std::string name = std::string("whole.") + GetParam();
    MakeSound("first.wav", 30000);
    const auto control = NewControl();
    ASSERT_EQ(Open(*control, "first.wav"), S_OK);
    ASSERT_EQ(Save(*control, name), S_OK);
    const bool ogg = name.ends_with("ogg");
    DamagedFiles damaged(Bytes(name), 7, ogg ? SealOggPages : nullptr);
    const auto folder = WorkFile(*control).parent_path() / "";
    int opened = 0;
    for (int i = 0; i < kVariants; ++i) {
        SCOPED_TRACE(i);
        Write(name, damaged.Next());
        const HRESULT status = Open(*control, name);
        SHORT running = 1;
        control->get_Status(&running);
        EXPECT_EQ(running, 0);
        const auto work = WorkFile(*control);
        if (FAILED(status)) {
            EXPECT_EQ(work, folder) << "no document";
            continue;
        }
        ++opened;
        ComPtr<interfaces::IMavrin2FileInfo> format;
        control->get_FileInfo(format.Put());
        interfaces::ChannelsConstants channels{};
        format->get_Channels(&channels);
        EXPECT_EQ(std::filesystem::file_size(work),
                  58u + static_cast<std::size_t>(Length(*control)) * 2 *
                            static_cast<std::size_t>(channels));
        EXPECT_EQ(control->Close(), S_OK);
    }
    EXPECT_GT(opened, kVariants / 10) << "the damage is not so great that nothing is ever read";
}

INSTANTIATE_TEST_SUITE_P(Of, DamagedSounds, testing::Values("wav", "flac", "ogg", "mp3"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
}  // namespace mavrin2::tests
