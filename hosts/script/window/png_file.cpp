#include "hosts/script/window/png_file.h"

#include <png.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>
#include <vector>

namespace mavrin2::script {
namespace {

[[noreturn]] void Fail(int error) {
    throw std::system_error(error != 0 ? error : EIO, std::generic_category());
}

// Red, green, blue, row by row.
std::vector<png_byte> BytesOf(const platform::Pixels& pixels) {
    constexpr std::size_t kColors = 3;
    std::vector<png_byte> bytes;
    bytes.reserve(kColors * static_cast<std::size_t>(pixels.Width) *
                  static_cast<std::size_t>(pixels.Height));
    for (int y = 0; y < pixels.Height; ++y) {
        const std::uint32_t* row = pixels.Data + static_cast<std::ptrdiff_t>(y) * pixels.Stride;
        for (int x = 0; x < pixels.Width; ++x)
            for (const int shift : {16, 8, 0})
                bytes.push_back(static_cast<png_byte>(row[x] >> shift));
    }
    return bytes;
}

}  // namespace

void WritePng(const std::filesystem::path& file, const platform::Pixels& pixels) {
    if (pixels.Width <= 0 || pixels.Height <= 0) Fail(EINVAL);
    const std::vector<png_byte> bytes = BytesOf(pixels);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "wb"),
                                                                 &std::fclose);
    if (!stream) Fail(errno);
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(pixels.Width);
    image.height = static_cast<png_uint_32>(pixels.Height);
    image.format = PNG_FORMAT_RGB;
    errno = 0;
    const bool written =
        png_image_write_to_stdio(&image, stream.get(), 0, bytes.data(), 0, nullptr) != 0;
    const int error = errno;
    png_image_free(&image);
    if (!written || std::fflush(stream.get()) != 0) Fail(written ? errno : error);
}

}  // namespace mavrin2::script
