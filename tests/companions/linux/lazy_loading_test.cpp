#include <dlfcn.h>

#include "automation/com_ptr.h"
#include "automation/text.h"
#include "companions/contracts/dusoro.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

class LazyLoadingTest : public SoundTest {
protected:
    // Other tests of this process may have loaded everything: each case starts a process anew.
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    static bool IsLoaded(const char* name) {
        std::ifstream maps("/proc/self/maps");
        const std::string text{std::istreambuf_iterator<char>(maps), {}};
        return text.find(name) != std::string::npos;
    }
    static bool HeavyOnesAreLoaded() {
        return IsLoaded("libavcodec") || IsLoaded("libavformat") || IsLoaded("dusoro-ffmpeg") ||
               IsLoaded("dusoro-lame") || IsLoaded("libsoxr");
    }
};

TEST_F(LazyLoadingTest, AWavIsReadAndWrittenWithoutTheHeavyLibraries) {
    EXPECT_EXIT(
        {
            const bool done =
                Save(In("a.wav"), {44100, 2}, Noise(100)) && ReadAll(In("a.wav")) == Noise(100);
            _exit(done && IsLoaded("dusoro-sndfile") && !HeavyOnesAreLoaded() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(LazyLoadingTest, AFlacIsReadWithoutTheHeavyLibraries) {
    EXPECT_EXIT(
        {
            const bool done =
                Save(In("a.flac"), {44100, 2}, Noise(100)) && ReadAll(In("a.flac")) == Noise(100);
            _exit(done && !HeavyOnesAreLoaded() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(LazyLoadingTest, AnMp3BringsThem) {
    EXPECT_EXIT(
        {
            const bool before = HeavyOnesAreLoaded();
            const bool done = Save(In("a.mp3"), {44100, 2}, Noise(100)) &&
                              IsLoaded("dusoro-lame") && !IsLoaded("libavcodec") &&
                              ReadAll(In("a.mp3")).size() == 100;
            _exit(!before && done && IsLoaded("libavcodec") ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

// As a host does it: the module that is registered, its class object, an instance.
TEST_F(LazyLoadingTest, TheModuleFindsTheOthersBesideItself) {
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, Noise(100));
    EXPECT_EXIT(
        {
            void* module = dlopen(BACKEND_FOLDER "/libKovDusoro2.so", RTLD_NOW | RTLD_LOCAL);
            const auto entry =
                reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>(
                    dlsym(module, "DllGetClassObject"));
            automation::ComPtr<IClassFactory> factory;
            automation::ComPtr<contracts::IDusoro2> companion;
            entry(contracts::CLSID_KovDusoro2, IID_IClassFactory, factory.PutVoid());
            factory->CreateInstance(nullptr, contracts::IID_IDusoro2, companion.PutVoid());
            const bool lean = !HeavyOnesAreLoaded() && !IsLoaded("dusoro-sndfile");
            const HRESULT opened =
                companion->OpenSoundFile(automation::Bstr(In("a.wav").string()).Get(), 0, 1);
            _exit(lean && opened == S_OK && !HeavyOnesAreLoaded() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(LazyLoadingTest, WithoutTheModulesNothingIsSupported) {
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 44100, 2, Noise(100));
    const SoundFiles nothing = FilesOf(platform::SystemPorts().Files, tests::NoBackends());
    EXPECT_EQ(nothing.Open(In("a.wav"), FormatType::Default).Error, SoundError::FormatNotSupported);
    EXPECT_EQ(nothing.Create(In("b.wav"), FormatType::Default, {}).Error,
              SoundError::FormatNotSupported);
    EXPECT_FALSE(std::filesystem::exists(In("b.wav")));
}

}  // namespace
}  // namespace mavrin2::dusoro
