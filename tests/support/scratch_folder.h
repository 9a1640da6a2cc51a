#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

namespace mavrin2::tests {

// An empty folder of a test's own, removed with everything in it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::random_device random;
        constexpr int attempts = 100;
        for (int i = 0; i < attempts; ++i) {
            path_ = std::filesystem::temp_directory_path() /
                    ("mavrin2-test-" + std::to_string(random()));
            std::error_code error;
            if (std::filesystem::create_directory(path_, error)) return;
        }
        throw std::runtime_error("no folder for the test");
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace mavrin2::tests
