#include "control/editor/wave_stream.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace mavrin2::editor {
namespace {

constexpr std::uint32_t kHeaderSize = 58;
constexpr std::uint32_t kFormatSize = 18;

std::uint32_t FourCc(const char (&name)[5]) {
    std::uint32_t code;
    std::memcpy(&code, name, 4);
    return code;
}

// Consecutive fields of a header. Every system this is built for is little-endian, as
// the file is.
class HeaderWriter {
public:
    explicit HeaderWriter(std::span<std::byte> target) : next_(target.data()) {}

    template <class Field>
    HeaderWriter& Put(Field field) {
        std::memcpy(next_, &field, sizeof field);
        next_ += sizeof field;
        return *this;
    }

private:
    std::byte* next_;
};

class HeaderReader {
public:
    explicit HeaderReader(std::span<const std::byte> source) : next_(source.data()) {}

    template <class Field>
    HeaderReader& Get(Field& field) {
        std::memcpy(&field, next_, sizeof field);
        next_ += sizeof field;
        return *this;
    }

private:
    const std::byte* next_;
};

struct Chunk {
    std::uint32_t Name = 0;
    std::uint32_t Size = 0;
};

std::optional<Chunk> ReadChunk(platform::File& file, std::int64_t offset) {
    std::array<std::byte, 8> bytes;
    if (file.Read(offset, bytes) != bytes.size()) return std::nullopt;
    Chunk chunk;
    HeaderReader(bytes).Get(chunk.Name).Get(chunk.Size);
    return chunk;
}

// Chunks begin at even offsets.
std::int64_t Padded(std::uint32_t size) {
    return std::int64_t{size} + (size & 1);
}

bool WriteField(platform::File& file, std::int64_t offset, std::uint32_t value) {
    std::array<std::byte, 4> bytes;
    HeaderWriter(bytes).Put(value);
    return file.Write(offset, bytes);
}

}  // namespace

bool WaveStream::Open(const std::filesystem::path& path, Mode mode) {
    Close();
    path_ = path;
    file_ = mode == Mode::Read ? files_.OpenForReading(path) : files_.OpenForUpdate(path);
    if (!file_ || !ReadHeader()) {
        file_.reset();
        return false;
    }
    mode_ = mode;
    position_ = 0;
    return true;
}

bool WaveStream::OpenWhole(const std::filesystem::path& path, signal::Bytes length) {
    if (Open(path, Mode::Read) && length_ == length.Count() && Available() == length.Count())
        return true;
    Close();
    return false;
}

bool WaveStream::ReadHeader() {
    format_ = {};
    length_ = 0;
    dataStart_ = 0;
    std::array<std::byte, 12> riff;
    if (file_->Read(0, riff) != riff.size()) return false;
    std::uint32_t name = 0;
    std::uint32_t size = 0;
    std::uint32_t form = 0;
    HeaderReader(riff).Get(name).Get(size).Get(form);
    if (name != FourCc("RIFF") || form != FourCc("WAVE")) return false;

    const std::int64_t end = std::int64_t{size} + 8;
    bool hasFormat = false;
    bool hasData = false;
    bool inside = true;  // a chunk that ends beyond the form ends the look at formats
    std::int64_t at = 12;
    while (at < end && !(hasData && !inside)) {
        const auto chunk = ReadChunk(*file_, at);
        if (!chunk) break;
        const std::int64_t data = at + 8;
        inside = inside && data + chunk->Size <= end;
        if (inside && chunk->Name == FourCc("fmt ")) {
            if (!ReadFormat(data)) return false;
            hasFormat = true;
        }
        if (chunk->Name == FourCc("data")) {
            if (inside) length_ = chunk->Size;
            if (!hasData) dataStart_ = static_cast<std::uint32_t>(data);
            hasData = true;
        }
        at = data + Padded(chunk->Size);
    }
    return hasFormat && hasData;
}

bool WaveStream::ReadFormat(std::int64_t offset) {
    std::array<std::byte, kFormatSize> bytes{};
    if (file_->Read(offset, bytes) != bytes.size()) return false;
    HeaderReader(bytes)
        .Get(format_.Tag)
        .Get(format_.Channels)
        .Get(format_.Frequency)
        .Get(format_.BytesPerSecond)
        .Get(format_.Alignment)
        .Get(format_.Bits);
    format_.ExtraSize = 0;
    return format_.Tag == 1;
}

bool WaveStream::Create(const std::filesystem::path& path, std::int32_t frequency,
                        std::int32_t channels) {
    Close();
    path_ = path;
    format_ = {};
    format_.Tag = 1;
    format_.Channels = static_cast<std::uint16_t>(channels);
    format_.Frequency = static_cast<std::uint32_t>(frequency);
    format_.Alignment = static_cast<std::uint16_t>(channels * 2);
    format_.BytesPerSecond = format_.Alignment * format_.Frequency;
    format_.Bits = 16;

    std::array<std::byte, kHeaderSize> header;
    HeaderWriter(header)
        .Put(FourCc("RIFF"))
        .Put(std::uint32_t{0})
        .Put(FourCc("WAVE"))
        .Put(FourCc("fmt "))
        .Put(kFormatSize)
        .Put(format_.Tag)
        .Put(format_.Channels)
        .Put(format_.Frequency)
        .Put(format_.BytesPerSecond)
        .Put(format_.Alignment)
        .Put(format_.Bits)
        .Put(format_.ExtraSize)
        .Put(FourCc("fact"))
        .Put(std::uint32_t{4})
        .Put(std::uint32_t{0})
        .Put(FourCc("data"))
        .Put(std::uint32_t{0});
    file_ = files_.Create(path);
    if (!file_) return false;
    if (!file_->Write(0, header)) {
        file_.reset();
        files_.Remove(path);
        return false;
    }
    mode_ = Mode::Created;
    dataStart_ = kHeaderSize;
    position_ = length_ = 0;
    return true;
}

std::optional<std::uint32_t> WaveStream::Read(std::span<std::byte> target) {
    const auto count = static_cast<std::uint32_t>(
        std::min<std::size_t>(target.size(), length_ - std::min(position_, length_)));
    if (count == 0) return 0;
    const auto read = file_->Read(std::int64_t{dataStart_} + position_, target.first(count));
    if (!read) return std::nullopt;
    position_ += static_cast<std::uint32_t>(*read);
    return static_cast<std::uint32_t>(*read);
}

std::optional<std::int64_t> WaveStream::Available() const {
    const auto fileLength = file_->Length();
    if (!fileLength) return std::nullopt;
    return std::clamp<std::int64_t>(*fileLength - dataStart_, 0, length_);
}

std::optional<std::uint32_t> WaveStream::ReadWhole(std::span<std::byte> target) {
    const auto read = Read(target);
    if (read && *read < target.size() && position_ < length_) return std::nullopt;
    return read;
}

std::uint32_t WaveStream::Room(std::uint32_t count) const {
    return std::min(count, LargestLength - std::min(position_, LargestLength));
}

void WaveStream::Advance(std::uint32_t count) {
    position_ += count;
    length_ = std::max(length_, position_);
}

bool WaveStream::Write(std::span<const std::byte> source) {
    const std::uint32_t count =
        Room(static_cast<std::uint32_t>(std::min<std::size_t>(source.size(), LargestLength)));
    if (count == 0) return true;
    if (!file_->Write(std::int64_t{dataStart_} + position_, source.first(count))) return false;
    Advance(count);
    if (observer_) observer_->Block(source.first(count));
    return true;
}

std::optional<std::uint32_t> WaveStream::CopyTo(WaveStream& target, std::uint32_t count,
                                                BlockBuffer& buffer) {
    std::uint32_t copied = 0;
    while (copied < count) {
        const auto piece = buffer.PieceFor(target.FileOffset(), count - copied);
        if (piece.empty()) return std::nullopt;
        const auto read = ReadWhole(piece);
        if (!read || !target.Write(piece.first(*read))) return std::nullopt;
        copied += *read;
        if (*read < piece.size()) break;
    }
    return copied;
}

bool WaveStream::Seek(std::int64_t position) {
    position_ = static_cast<std::uint32_t>(std::clamp<std::int64_t>(position, 0, UINT32_MAX));
    return true;
}

bool WaveStream::CutTo(std::uint32_t length) {
    if (!file_->Truncate(std::int64_t{dataStart_} + length)) return false;
    length_ = length;
    return true;
}

bool WaveStream::FixSizes() {
    auto fileLength = file_->Length();
    if (!fileLength) return false;
    const auto dataLength = static_cast<std::uint32_t>(*fileLength - dataStart_);
    if (dataLength & 1) {
        const std::array<std::byte, 1> padding{};
        if (!file_->Write(*fileLength, padding)) return false;
        ++*fileLength;
    }
    return WriteField(*file_, dataStart_ - 4, dataLength) &&
           WriteField(*file_, 4, static_cast<std::uint32_t>(*fileLength - 8));
}

bool WaveStream::Close() {
    const bool writable = mode_ == Mode::Update || mode_ == Mode::Created;
    const bool fixed = !writable || FixSizes();
    file_.reset();
    mode_ = Mode::Closed;
    position_ = length_ = 0;
    return fixed;
}

}  // namespace mavrin2::editor
