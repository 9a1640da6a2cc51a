#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

#include "control/editor/block_buffer.h"
#include "control/editor/ports.h"
#include "platform/files.h"

namespace mavrin2::editor {

// The reader and writer of the editor's own sound files: RIFF/WAVE files of 16-bit PCM. Positions
// and lengths are bytes of sample data.
//
// A created file has this header (little-endian), the sizes being right once it is closed:
//    0 "RIFF"   4 file length − 8   8 "WAVE"
//   12 "fmt "  16 18                20 tag 1, channels, rate, bytes per second, alignment, bits,
//                                      extra size 0
//   38 "fact"  42 4                 46 0
//   50 "data"  54 data length       58 samples
class WaveStream {
public:
    enum class Mode : std::uint16_t { Closed = 0, Read = 1, Update = 2, Created = 3 };

    // The format block of a file.
    struct WaveFormat {
        std::uint16_t Tag = 0;
        std::uint16_t Channels = 0;
        std::uint32_t Frequency = 0;
        std::uint32_t BytesPerSecond = 0;
        std::uint16_t Alignment = 0;
        std::uint16_t Bits = 0;
        std::uint16_t ExtraSize = 0;
    };

    // No document grows beyond this: a write that would is cut short there.
    static constexpr std::uint32_t LargestLength = 0x7FFFFFFF;

    explicit WaveStream(platform::FileSystem& files) : files_(files) {}
    WaveStream(const WaveStream&) = delete;
    WaveStream& operator=(const WaveStream&) = delete;
    ~WaveStream() { Close(); }

    // False for a file that is not RIFF "WAVE", is not tagged PCM or has no data.
    bool Open(const std::filesystem::path& path, Mode mode);
    // Opens a version of the document for reading: false also when the file has lost samples.
    bool OpenWhole(const std::filesystem::path& path, signal::Bytes length);
    // An empty file, in place of any of that name.
    bool Create(const std::filesystem::path& path, std::int32_t frequency, std::int32_t channels);

    // The bytes read, 0 at the end; nothing when reading failed.
    std::optional<std::uint32_t> Read(std::span<std::byte> target);
    // As Read; nothing also when the file ends before the length that its header states.
    std::optional<std::uint32_t> ReadWhole(std::span<std::byte> target);
    // True when all of it was written, or all up to the largest length.
    bool Write(std::span<const std::byte> source);
    // Reads up to `count` bytes and writes them to `target`: the bytes copied, 0 at the end;
    // nothing when reading or writing failed or there is no memory.
    std::optional<std::uint32_t> CopyTo(WaveStream& target, std::uint32_t count,
                                        BlockBuffer& buffer);
    bool Seek(std::int64_t position);
    // Leaves the first `length` bytes of samples of a file that is open for update, as after a
    // write that has grown it by a part. False when that failed.
    bool CutTo(std::uint32_t length);

    // Passes every block that is written to the observer, which has to outlive this; null for none.
    void SetObserver(BlockObserver* observer) { observer_ = observer; }

    // Puts the sizes into the header of a file that was written. False when that failed.
    bool Close();

    const std::filesystem::path& Path() const { return path_; }
    std::uint32_t DataPos() const { return position_; }
    // The same from the start of the file.
    std::int64_t FileOffset() const { return std::int64_t{dataStart_} + position_; }
    std::uint32_t Length() const { return length_; }
    // The samples' bytes that the file really has, no more than Length(); nothing when that is not
    // known.
    std::optional<std::int64_t> Available() const;
    const WaveFormat& Format() const { return format_; }

private:
    bool ReadHeader();
    bool ReadFormat(std::int64_t offset);
    bool FixSizes();
    std::uint32_t Room(std::uint32_t count) const;
    void Advance(std::uint32_t count);

    platform::FileSystem& files_;
    BlockObserver* observer_ = nullptr;
    std::unique_ptr<platform::File> file_;
    std::filesystem::path path_;
    Mode mode_ = Mode::Closed;
    WaveFormat format_;
    std::uint32_t position_ = 0;
    std::uint32_t length_ = 0;
    std::uint32_t dataStart_ = 0;
};

}  // namespace mavrin2::editor
