#include <dlfcn.h>

#include <fstream>
#include <iterator>

#include "automation/com_ptr.h"
#include "companions/contracts/kestrin.h"
#include "tests/kestrin/transform_test.h"

namespace mavrin2::kestrin {
namespace {

class LazyLoadingTest : public testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    static bool IsLoaded(const char* name) {
        std::ifstream maps("/proc/self/maps");
        const std::string text{std::istreambuf_iterator<char>(maps), {}};
        return text.find(name) != std::string::npos;
    }
};

TEST_F(LazyLoadingTest, AnOperationLoadsTheLibraryThatItNeeds) {
    EXPECT_EXIT(
        {
            void* module = dlopen(BACKEND_FOLDER "/libKovKestrin.so", RTLD_NOW | RTLD_LOCAL);
            const auto entry =
                reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>(
                    dlsym(module, "DllGetClassObject"));
            automation::ComPtr<IClassFactory> factory;
            automation::ComPtr<contracts::IKestrin2> companion;
            entry(contracts::CLSID_KovKestrin, IID_IClassFactory, factory.PutVoid());
            factory->CreateInstance(nullptr, contracts::IID_IKestrin2, companion.PutVoid());
            SAFEARRAY* array = SafeArrayCreateVector(VT_I2, 0, 1000);
            bool good = companion->Amplify(&array, 50) == S_OK &&
                        companion->LowPassFilter(&array, 1000, 2) == S_OK &&
                        !IsLoaded("libavutil") && !IsLoaded("libsoxr");
            good = good && companion->TimeStretch(&array, 120) == S_OK && IsLoaded("libavutil") &&
                   !IsLoaded("libsoxr");
            good = good && companion->Resample(&array, 120) == S_OK && IsLoaded("libsoxr");
            _exit(good ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace mavrin2::kestrin
