#include "hosts/script/window/png_file.h"

#include <png.h>

#include <cerrno>
#include <csetjmp>
#include <new>
#include <system_error>

namespace mavrin2::script {
namespace {

[[noreturn]] void Throw(int error) {
    throw std::system_error(error != 0 ? error : EIO, std::generic_category());
}

// Without what libpng does by default: it prints its messages.
[[noreturn]] void Return(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}
void Ignore(png_structp, png_const_charp) {}

}  // namespace

// libpng reports a failure by a long jump to here: no step may have anything to destroy.
template <class Step>
void PngFile::Run(Step step) {
    errno = 0;
    if (setjmp(png_jmpbuf(png_)) != 0) Fail();  // NOLINT(cert-err52-cpp)
    step();
}

void PngFile::Fail() const {
    Throw(errno);
}

PngFile::PngFile(const std::filesystem::path& file, int width, int height, Kind kind)
    : kind_(kind), stream_(nullptr, &std::fclose) {
    if (width <= 0 || height <= 0) Throw(EINVAL);
    stream_.reset(std::fopen(file.c_str(), "wb"));
    if (!stream_) Throw(errno);
    const bool opaque = kind == Kind::Opaque;
    row_.resize(static_cast<std::size_t>(width) * (opaque ? 3 : 4));
    png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, &Return, &Ignore);
    if (!png_) throw std::bad_alloc();
    try {
        Run([&] {
            info_ = png_create_info_struct(png_);
            png_init_io(png_, stream_.get());
            png_set_IHDR(png_, info_, static_cast<png_uint_32>(width),
                         static_cast<png_uint_32>(height), 8,
                         opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
                         PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
            // Most rows resemble the one above: trying all filters took twice as long.
            png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
            png_write_info(png_, info_);
        });
    } catch (...) {
        png_destroy_write_struct(&png_, &info_);
        throw;
    }
}

PngFile::~PngFile() {
    png_destroy_write_struct(&png_, &info_);
}

void PngFile::Write(const platform::Pixels& rows) {
    for (int y = 0; y < rows.Height; ++y) {
        const std::uint32_t* const pixels =
            rows.Data + static_cast<std::ptrdiff_t>(y) * rows.Stride;
        std::uint8_t* byte = row_.data();
        for (int x = 0; x < rows.Width; ++x) {
            for (const int shift : {16, 8, 0})
                *byte++ = static_cast<std::uint8_t>(pixels[x] >> shift);
            if (kind_ == Kind::Transparent) *byte++ = static_cast<std::uint8_t>(pixels[x] >> 24);
        }
        Run([&] { png_write_row(png_, row_.data()); });
    }
}

void PngFile::Finish() {
    Run([&] { png_write_end(png_, nullptr); });
    if (std::fflush(stream_.get()) != 0) Throw(errno);
}

void WritePng(const std::filesystem::path& file, const platform::Pixels& pixels) {
    PngFile png(file, pixels.Width, pixels.Height, PngFile::Kind::Opaque);
    png.Write(pixels);
    png.Finish();
}

}  // namespace mavrin2::script
