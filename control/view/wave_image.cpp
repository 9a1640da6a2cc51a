#include "control/view/wave_image.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace mavrin2::view {
namespace {

// The file's own header, then the 40 bytes that describe the bitmap, then red, green and blue.
constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInformation = 52;
constexpr std::uint32_t kBitFields = 3;

class LittleEndian {
public:
    void Put16(std::uint32_t value) { Put(value, 2); }
    void Put32(std::uint32_t value) { Put(value, 4); }
    const std::vector<std::byte>& Bytes() const { return bytes_; }

private:
    void Put(std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i)
            bytes_.push_back(std::byte(value >> 8 * i & 0xFF));
    }

    std::vector<std::byte> bytes_;
};

LittleEndian HeaderOf(const Surface& picture, std::uint32_t imageSize) {
    LittleEndian header;
    header.Put16(0x4D42);  // "BM"
    header.Put32(kFileHeader + kInformation + imageSize);
    header.Put32(0);
    header.Put32(kFileHeader + kInformation);
    header.Put32(40);
    header.Put32(static_cast<std::uint32_t>(picture.Width()));
    header.Put32(static_cast<std::uint32_t>(picture.Height()));
    header.Put16(1);
    header.Put16(32);
    header.Put32(kBitFields);
    header.Put32(imageSize);
    for (int unused = 0; unused < 4; ++unused)
        header.Put32(0);
    for (const std::uint32_t mask : {0xFF0000u, 0xFF00u, 0xFFu})
        header.Put32(mask);
    return header;
}

}  // namespace

void WriteWaveImage(platform::FileSystem& files, const std::filesystem::path& path,
                    const Surface& picture) {
    const auto file = files.Create(path);
    if (!file) return;
    const auto size = static_cast<std::uint32_t>(picture.Width()) *
                      static_cast<std::uint32_t>(picture.Height()) * 4;
    const LittleEndian header = HeaderOf(picture, size);
    if (!file->Write(0, header.Bytes())) return;
    auto offset = static_cast<std::int64_t>(header.Bytes().size());
    for (std::int32_t y = picture.Height() - 1; y >= 0; --y) {
        LittleEndian row;
        for (std::int32_t x = 0; x < picture.Width(); ++x)
            row.Put32(picture.Row(y)[x]);
        if (!file->Write(offset, row.Bytes())) return;
        offset += static_cast<std::int64_t>(row.Bytes().size());
    }
}

}  // namespace mavrin2::view
