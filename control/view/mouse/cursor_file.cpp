#include "control/view/mouse/cursor_file.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <span>
#include <vector>

namespace mavrin2::view {
namespace {

using platform::PointerImage;

// A file of many large images is smaller.
constexpr std::int64_t kLargestFile = 4 << 20;
constexpr int kLargestImage = 256;
constexpr int kUsualSize = 32;

// The bytes of a file, little-endian. What is past its end fails, and reads as 0.
class LittleEndian {
public:
    explicit LittleEndian(std::span<const std::byte> bytes) : bytes_(bytes) {}

    std::uint32_t Read(std::size_t offset, std::size_t size) const {
        if (!Has(offset, size)) return 0;
        std::uint32_t value = 0;
        for (std::size_t i = size; i-- > 0;)
            value = value << 8 | std::to_integer<std::uint32_t>(bytes_[offset + i]);
        return value;
    }
    std::uint16_t Short(std::size_t offset) const {
        return static_cast<std::uint16_t>(Read(offset, 2));
    }
    std::uint32_t Long(std::size_t offset) const { return Read(offset, 4); }
    bool Has(std::size_t offset, std::size_t size) const {
        return offset <= bytes_.size() && size <= bytes_.size() - offset;
    }

private:
    std::span<const std::byte> bytes_;
};

std::vector<std::byte> ReadAll(platform::FileSystem& files, const std::filesystem::path& path) {
    const auto file = files.OpenForReading(path);
    if (!file) return {};
    const std::int64_t length = file->Length().value_or(0);
    if (length <= 0 || length > kLargestFile) return {};
    std::vector<std::byte> bytes(static_cast<std::size_t>(length));
    bytes.resize(file->Read(0, bytes).value_or(0));
    return bytes;
}

// One image: a bitmap's header, its palette, rows of pixels from the bottom, and rows of a mask of
// one bit each, set where the image is transparent.
struct Bitmap {
    int Width = 0;
    int Height = 0;
    std::size_t Bits = 0;
    std::size_t Colors = 0;  // in the palette
    std::size_t Palette = 0;
    std::size_t Pixels = 0;
    std::size_t Mask = 0;

    static std::size_t Stride(int width, std::size_t bits) {
        return (static_cast<std::size_t>(width) * bits + 31) / 32 * 4;
    }
};

std::optional<Bitmap> BitmapAt(const LittleEndian& file, std::size_t offset) {
    constexpr std::uint32_t kHeaderSize = 40;
    constexpr std::uint32_t kUncompressed = 0;
    if (!file.Has(offset, kHeaderSize)) return std::nullopt;
    const std::uint32_t header = file.Long(offset);
    const std::uint32_t width = file.Long(offset + 4);
    const std::uint32_t height = file.Long(offset + 8) / 2;  // with the mask's
    Bitmap bitmap;
    bitmap.Bits = file.Short(offset + 14);
    const std::uint32_t used = file.Long(offset + 32);
    constexpr std::array<std::size_t, 5> kBits = {1, 4, 8, 24, 32};
    if (header < kHeaderSize || header > 4096 || width < 1 || width > kLargestImage || height < 1 ||
        height > kLargestImage || file.Long(offset + 16) != kUncompressed ||
        std::ranges::find(kBits, bitmap.Bits) == kBits.end())
        return std::nullopt;
    bitmap.Width = static_cast<int>(width);
    bitmap.Height = static_cast<int>(height);
    if (bitmap.Bits <= 8) {
        const std::size_t most = std::size_t{1} << bitmap.Bits;
        bitmap.Colors = used == 0 ? most : std::min<std::size_t>(used, most);
    }
    bitmap.Palette = offset + header;
    bitmap.Pixels = bitmap.Palette + bitmap.Colors * 4;
    bitmap.Mask = bitmap.Pixels + Bitmap::Stride(bitmap.Width, bitmap.Bits) * height;
    if (!file.Has(bitmap.Mask, Bitmap::Stride(bitmap.Width, 1) * height)) return std::nullopt;
    return bitmap;
}

std::uint32_t BitsAt(const LittleEndian& file, std::size_t row, std::size_t x, std::size_t bits) {
    const std::size_t shift = 8 - bits - x * bits % 8;
    return file.Read(row + x * bits / 8, 1) >> shift & ((1U << bits) - 1);
}

// 0xAARRGGBB as it is in the file; alpha is 0 in files without it.
std::uint32_t PixelAt(const LittleEndian& file, const Bitmap& bitmap, std::size_t row,
                      std::size_t x) {
    if (bitmap.Bits == 32) return file.Long(row + x * 4);
    if (bitmap.Bits == 24) return file.Read(row + x * 3, 3);
    const std::uint32_t index = BitsAt(file, row, x, bitmap.Bits);
    return index < bitmap.Colors ? file.Read(bitmap.Palette + std::size_t{index} * 4, 3) : 0;
}

PointerImage Decode(const LittleEndian& file, const Bitmap& bitmap) {
    PointerImage image{bitmap.Width, bitmap.Height, 0, 0, {}};
    image.Pixels.reserve(static_cast<std::size_t>(bitmap.Width) *
                         static_cast<std::size_t>(bitmap.Height));
    std::vector<bool> transparent;
    bool hasAlpha = false;
    for (int y = bitmap.Height - 1; y >= 0; --y) {
        const auto line = static_cast<std::size_t>(y);
        const std::size_t row = bitmap.Pixels + line * Bitmap::Stride(bitmap.Width, bitmap.Bits);
        const std::size_t mask = bitmap.Mask + line * Bitmap::Stride(bitmap.Width, 1);
        for (std::size_t x = 0; x < static_cast<std::size_t>(bitmap.Width); ++x) {
            image.Pixels.push_back(PixelAt(file, bitmap, row, x));
            hasAlpha = hasAlpha || image.Pixels.back() >> 24 != 0;
            transparent.push_back(BitsAt(file, mask, x, 1) != 0);
        }
    }
    if (hasAlpha) return image;
    for (std::size_t i = 0; i < image.Pixels.size(); ++i) {
        std::uint32_t& pixel = image.Pixels[i];
        // What inverts the screen is black, which no pointer here can do.
        if (!transparent[i])
            pixel |= 0xFF000000;
        else
            pixel = (pixel & 0xFFFFFF) != 0 ? 0xFF000000 : 0;
    }
    return image;
}

}  // namespace

std::shared_ptr<const PointerImage> ReadCursorFile(platform::FileSystem& files,
                                                   const std::filesystem::path& path) {
    constexpr std::size_t kDirectory = 6;
    constexpr std::size_t kEntry = 16;
    constexpr std::uint16_t kCursors = 2;
    const std::vector<std::byte> bytes = ReadAll(files, path);
    const LittleEndian file(bytes);
    if (file.Short(0) != 0 || file.Short(2) != kCursors) return nullptr;
    std::optional<Bitmap> best;
    std::size_t bestEntry = 0;
    const auto distance = [](const Bitmap& bitmap) {
        return std::abs(bitmap.Width - kUsualSize) + std::abs(bitmap.Height - kUsualSize);
    };
    for (std::size_t i = 0; i < file.Short(4); ++i) {
        const std::size_t entry = kDirectory + i * kEntry;
        const auto bitmap = BitmapAt(file, file.Long(entry + 12));
        if (!bitmap) continue;
        const int nearer = best ? distance(*best) - distance(*bitmap) : 1;
        if (nearer > 0 || (nearer == 0 && bitmap->Bits > best->Bits)) {
            best = bitmap;
            bestEntry = entry;
        }
    }
    if (!best) return nullptr;
    PointerImage image = Decode(file, *best);
    image.HotSpotX = std::min<int>(file.Short(bestEntry + 4), image.Width - 1);
    image.HotSpotY = std::min<int>(file.Short(bestEntry + 6), image.Height - 1);
    return std::make_shared<const PointerImage>(std::move(image));
}

}  // namespace mavrin2::view
