// Memory that runs out at every place while a file is written.

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <new>

#include "automation/text.h"
#include "companions/ontiva/information_companion.h"
#include "platform/ports.h"
#include "tests/ontiva/sound_files.h"
#include "tests/support/scratch_folder.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

// The allocation that fails, counted down; off while negative.
std::int64_t allocationsLeft = -1;

}  // namespace

// Every allocation of this program and of the modules that it loads.
void* operator new(std::size_t size) {
    if (allocationsLeft >= 0 && allocationsLeft-- == 0) throw std::bad_alloc();
    if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (allocationsLeft >= 0 && allocationsLeft-- == 0) return nullptr;
    return std::malloc(size > 0 ? size : 1);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace mavrin2::ontiva {
namespace {

using automation::Bstr;

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class ShortOfMemory : public EachKind {};

TEST_P(ShortOfMemory, StaysWhole) {
    const tests::ScratchFolder folder;
    const auto path = folder.Path() / "sound";
    const std::string sound = Sound(3000);
    const auto companion = InformationCompanion::Make(
        InfoFiles(platform::SystemPorts().Files, platform::SystemReplacementFiles(),
                  std::make_unique<BackendLibraries>(tests::BuiltBackends("ontiva"))));
    const Bstr name{automation::OleStringView(automation::ToOle(path))};
    const Bstr text{std::string_view("text")};
    const auto write = [&](std::int64_t allocations) {
        std::ofstream(path, std::ios::binary) << sound;
        allocationsLeft = allocations;
        const HRESULT status = companion->WriteInfo(name.Get());
        allocationsLeft = -1;
        return status;
    };
    companion->put_Title(text.Get());
    companion->InfoAddMarker(5, 7, text.Get(), text.Get(), text.Get(), 0, 0, 0, 0);
    ASSERT_EQ(write(-1), S_OK);  // loads the libraries

#if defined(__SANITIZE_ADDRESS__)
    // What the libraries do not give back then is theirs.
    const __lsan::ScopedDisabler noLeaks;
#endif
    int failed = 0;
    // Each of the first hundred, and then one in some.
    for (std::int64_t n = 0;; n += 1 + n / 100) {
        const HRESULT status = write(n);
        const std::string bytes = BytesOf(path);
        if (status == S_OK) {
            EXPECT_EQ(ReadInfo(bytes).Markers.size(), 1U);
            break;
        }
        ++failed;
        EXPECT_TRUE(bytes == sound) << n;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1) << n;
    }
    EXPECT_GT(failed, 20);
}

INSTANTIATE_TEST_SUITE_P(Memory, ShortOfMemory, testing::ValuesIn(kKinds),
                         [](const auto& tested) { return tested.param.Name; });

}  // namespace
}  // namespace mavrin2::ontiva
