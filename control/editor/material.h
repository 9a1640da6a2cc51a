#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <utility>

#include "control/editor/block_buffer.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"
#include "control/editor/wave_stream.h"
#include "control/signal/pcm_convert.h"

namespace mavrin2::editor {

// Sound to paste or mix, block by block in the document's format.
class Material {
public:
    struct Block {
        std::span<std::byte> Sound;  // interleaved 16-bit samples; the receiver may change them
        std::size_t Consumed = 0;    // bytes of the source that it was made from
    };

    struct Ending {
        ErrorConstants Error = ErrorConstants::NOERRORS;
        bool KeepsPart = true;  // what came before the error may be used
    };

    virtual ~Material() = default;

    // The next block, which will be written at that offset of a file; empty at the end. The memory
    // is the material's own and is used again for the next block.
    virtual Block Next(std::int64_t fileOffset) = 0;
    // How the sound has ended.
    virtual Ending End() const = 0;

    // How far the source has been read, and how long it is, in bytes as the progress counts them.
    virtual std::int64_t Position() const = 0;
    virtual std::int64_t Length() const = 0;

    // Samples of the blocks so far that conversion has limited to full scale.
    virtual std::int64_t LimitedSamples() const = 0;

    // The blocks are complete. What is open is closed before the edit is committed.
    virtual void Close() = 0;
};

// The editor's own clipboard: a WAVE file, converted where its rate or channels are not those of
// the document.
class ClipMaterial final : public Material {
public:
    ClipMaterial(const Storage& storage, DocumentFormat format);

    // False when there is no such file, or it is not one that WaveStream reads.
    bool Open(const std::filesystem::path& path);
    // Whether it has a rate, and one channel or two.
    bool IsSupported() const;
    // Bytes of the document's format that a block has; before the first block.
    void SetBlockSize(std::uint32_t size);
    // How long the sound is in the document's format, where that is known beforehand.
    std::optional<Bytes> ConvertedLength() const;

    Block Next(std::int64_t fileOffset) override;
    Ending End() const override { return ending_; }
    std::int64_t Position() const override { return clip_.DataPos(); }
    std::int64_t Length() const override { return clip_.Length(); }
    std::int64_t LimitedSamples() const override { return convert_.LimitedSamples(); }
    void Close() override { clip_.Close(); }

private:
    Block Fail(ErrorConstants error);
    Block Convert(std::span<const std::byte> read, std::int64_t fileOffset);

    platform::BlockMemory& memory_;
    const DocumentFormat format_;
    WaveStream clip_;
    std::int64_t available_ = 0;  // bytes of the clip
    bool converts_ = false;
    std::size_t amount_ = 0;     // bytes of the clip that make a block
    std::int64_t position_ = 0;  // of the next block in the clip
    std::optional<BlockBuffer> input_;
    std::optional<BlockBuffer> output_;
    signal::CPcmConvert convert_;
    Ending ending_;
};

// A sound file of any format, decoded and converted by a private companion.
class FileMaterial final : public Material {
public:
    // A block of fewer values than `leastValues` is the end.
    explicit FileMaterial(DocumentFormat format, std::size_t leastValues = 2)
        : format_(std::move(format)), leastValues_(leastValues) {}
    FileMaterial(const FileMaterial&) = delete;
    FileMaterial& operator=(const FileMaterial&) = delete;

    SoundFileCompanion& Companion() { return companion_; }
    // The companion's code.
    ErrorConstants Open(const std::filesystem::path& path);

    Block Next(std::int64_t fileOffset) override;
    Ending End() const override { return ending_; }
    // Without the block that was given last.
    std::int64_t Position() const override { return position_; }
    std::int64_t Length() const override { return length_; }
    std::int64_t LimitedSamples() const override { return companion_.LimitedSamples(); }
    void Close() override;

private:
    const DocumentFormat format_;
    SoundFileCompanion companion_;
    SoundFileCompanion::Samples block_;
    std::optional<automation::ArrayView<std::int16_t>> view_;
    const std::size_t leastValues_;
    std::int64_t position_ = 0;
    std::int64_t length_ = 0;
    Ending ending_;
};

}  // namespace mavrin2::editor
