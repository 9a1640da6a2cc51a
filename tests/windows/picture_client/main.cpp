// Shows the control in a container that is not ours, and draws it outside of any: both must give
// one picture, which is written to a file as it is in memory, 0x00RRGGBB row by row.
//
//   picture_client WIDTH HEIGHT SOUND OUT

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "tests/windows/host/system_host.h"

namespace mavrin2::tests {
namespace {

void Run(int width, int height, const char* sound, const char* out) {
    const SystemHost host(width, height);
    host.Open(sound);
    const Picture window = host.InWindow();
    if (host.Drawn() != window) throw std::runtime_error("OleDraw gives another picture");
    if (host.InWindow() != window) throw std::runtime_error("the window has changed since");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(out, "wb"), &std::fclose);
    if (!file ||
        std::fwrite(window.data(), sizeof(window[0]), window.size(), file.get()) != window.size())
        throw std::runtime_error("the picture cannot be written");
}

}  // namespace
}  // namespace mavrin2::tests

int main(int count, char** values) {
    if (count != 5) return 2;
    ::CoInitialize(nullptr);
    try {
        mavrin2::tests::Run(std::atoi(values[1]), std::atoi(values[2]), values[3], values[4]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "picture_client: %s\n", error.what());
        return 1;
    }
    ::CoUninitialize();
    return 0;
}
