#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/pixels.h"

struct png_struct_def;
struct png_info_def;

namespace mavrin2::script {

// A PNG file with 8 bits a colour that is written from the top, some rows at a time. All of it
// throws std::system_error; what there is of the file then stays.
class PngFile {
public:
    enum class Kind : std::uint8_t {
        Opaque,      // 0x00RRGGBB
        Transparent  // 0xAARRGGBB, not multiplied by the opacity AA
    };

    // In pixels, at least 1 each.
    PngFile(const std::filesystem::path& file, int width, int height, Kind kind);
    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;
    ~PngFile();

    // The next rows, as wide as the picture.
    void Write(const platform::Pixels& rows);
    // After the last row.
    void Finish();

private:
    template <class Step>
    void Run(Step step);
    [[noreturn]] void Fail() const;

    Kind kind_;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream_;
    png_struct_def* png_ = nullptr;
    png_info_def* info_ = nullptr;
    std::vector<std::uint8_t> row_;
};

// Writes a whole picture without transparency.
void WritePng(const std::filesystem::path& file, const platform::Pixels& pixels);

}  // namespace mavrin2::script
