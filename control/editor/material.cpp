#include "control/editor/material.h"

#include <algorithm>

namespace mavrin2::editor {

ClipMaterial::ClipMaterial(const Storage& storage, DocumentFormat format)
    : memory_(storage.Memory), format_(std::move(format)), clip_(storage.Files) {}

bool ClipMaterial::Open(const std::filesystem::path& path) {
    if (!clip_.Open(path, WaveStream::Mode::Read)) return false;
    const WaveStream::WaveFormat& format = clip_.Format();
    converts_ = static_cast<std::int32_t>(format.Frequency) != format_.Frequency ||
                format.Channels != format_.Channels;
    const auto available = clip_.Available();
    if (!available) return false;
    // A file may be shorter than its header says.
    available_ = *available;
    if (available_ < clip_.Length()) ending_.Error = ErrorConstants::FILEACCESS;
    return true;
}

bool ClipMaterial::IsSupported() const {
    const WaveStream::WaveFormat& format = clip_.Format();
    return static_cast<std::int32_t>(format.Frequency) > 0 &&
           (format.Channels == 1 || format.Channels == 2);
}

void ClipMaterial::SetBlockSize(std::uint32_t size) {
    const WaveStream::WaveFormat& format = clip_.Format();
    constexpr std::size_t kPage = platform::BlockMemory::PageSize;
    amount_ = size;
    if (converts_) {
        const double ratio = (static_cast<double>(format.Frequency) / format_.Frequency) *
                             (static_cast<double>(format.Channels) / format_.Channels);
        // No more than there is, whatever rate a file claims.
        const double wanted = std::min(size * ratio + 0.5, static_cast<double>(available_));
        amount_ = std::max(static_cast<std::size_t>(wanted), std::size_t{format.Channels} * 2);
        convert_.SetInput(static_cast<std::int32_t>(format.Frequency), format.Channels, 16);
        convert_.SetOutput(format_.Frequency, format_.Channels, 16);
        convert_.Init();
        input_.emplace(memory_, amount_);
        output_.emplace(memory_, convert_.OutputCapacityFor(amount_) + kPage);
    } else {
        output_.emplace(memory_, amount_ + kPage);
    }
}

std::optional<Bytes> ClipMaterial::ConvertedLength() const {
    if (converts_) return std::nullopt;
    return Bytes(clip_.Length());
}

Material::Block ClipMaterial::Fail(ErrorConstants error) {
    ending_ = {error, false};
    return {};
}

Material::Block ClipMaterial::Next(std::int64_t fileOffset) {
    BlockBuffer& first = converts_ ? *input_ : *output_;
    if (!first.Take() || !output_->Take()) return Fail(ErrorConstants::MEMORY);
    clip_.Seek(position_);
    const auto place = first.PieceFor(converts_ ? 0 : fileOffset, amount_);
    const auto read = clip_.Read(place);
    if (!read) return Fail(ErrorConstants::FILEACCESS);
    if (*read == 0) return {};
    Block block{place.first(*read), *read};
    if (converts_) block = Convert(block.Sound, fileOffset);
    position_ += static_cast<std::int64_t>(block.Consumed);
    return block;
}

Material::Block ClipMaterial::Convert(std::span<const std::byte> read, std::int64_t fileOffset) {
    const auto place = output_->PieceFor(fileOffset, convert_.OutputCapacityFor(read.size()));
    const auto [consumed, produced] = convert_.Convert(read, place);
    convert_.UpdateFilterHistory(produced);
    if (consumed == 0) return {};
    return {place.first(produced), consumed};
}

ErrorConstants FileMaterial::Open(const std::filesystem::path& path) {
    const ErrorConstants error = companion_.TryOpen(path, FormatTypeConstants::DEFAULT);
    if (error != ErrorConstants::NOERRORS) return error;
    companion_.SetPcmFormat(format_.Frequency, format_.Channels);
    length_ = std::int64_t{companion_.GetLength()} * format_.FrameSize().Count();
    return error;
}

Material::Block FileMaterial::Next(std::int64_t) {
    if (view_) position_ += static_cast<std::int64_t>(view_->Elements().size_bytes());
    view_.reset();
    if (!companion_.ReadBlock(format_.Frequency, block_))
        ending_.Error = companion_.ReasonOfFailure();
    view_.emplace(block_.Get());
    const auto sound = std::as_writable_bytes(view_->Elements());
    if (view_->Elements().size() < leastValues_) return {};
    return {sound, sound.size()};
}

void FileMaterial::Close() {
    view_.reset();
    block_.Reset();
    companion_.CloseFile();
}

}  // namespace mavrin2::editor
