#include "companions/dusoro/sound/sound_files.h"

#include <array>

#include "companions/dusoro/sound/converting_reader.h"
#include "companions/dusoro/sound/converting_writer.h"
#include "companions/dusoro/sound/reading_plan.h"

namespace mavrin2::dusoro {
namespace {

// An encoder's output together with the file that it goes to.
class SavedSound final : public SoundWriter {
public:
    SavedSound(std::unique_ptr<platform::ReplacementFile> file,
               std::unique_ptr<SoundWriter> encoder)
        : file_(std::move(file)), encoder_(std::move(encoder)) {}

    const OutputDescription& Description() const override { return encoder_->Description(); }

    bool Write(std::span<const std::int16_t> samples) override {
        empty_ = empty_ && samples.empty();
        failed_ = failed_ || !encoder_->Write(samples);
        return !failed_;
    }

    bool Finish() override {
        if (empty_ && !Description().PlainPcm) WriteSilentFrame();
        return !failed_ && encoder_->Finish() && !file_->Commit();
    }

private:
    // The kinds with a coding have no file without sound: readers take it for a broken one.
    void WriteSilentFrame() {
        constexpr std::array<std::int16_t, 2> kSilence{};
        Write(std::span(kSilence).first(static_cast<std::size_t>(Description().Carried.Channels)));
    }

    std::unique_ptr<platform::ReplacementFile> file_;
    std::unique_ptr<SoundWriter> encoder_;  // goes before the file it writes to
    bool empty_ = true;
    bool failed_ = false;
};

}  // namespace

Outcome<std::unique_ptr<SoundReader>> SoundFiles::Open(const std::filesystem::path& path,
                                                       FormatType type, const OutputFormat& chosen,
                                                       bool check) const {
    const std::shared_ptr<platform::File> file = inputs_->OpenForReading(path);
    if (!file) return SoundError::FileAccess;
    std::array<std::byte, kHeadSize> head{};
    const auto got = file->Read(0, head);
    if (!got) return SoundError::FileAccess;
    if (*got == 0) return SoundError::FormatFile;

    const auto plan = PlanReading(std::span(head).first(*got), path, type, chosen);
    if (!plan) return plan.Error;
    const ReadingHint hint{plan.Result.Headerless, ExtensionOf(path), check};
    // That one library knows the kind of file says more than that the others do not.
    SoundError error = SoundError::FormatFile;
    for (const DecoderKind kind : plan.Result.Candidates) {
        const Decoder* decoder = backends_.DecoderFor(kind);
        if (!decoder) {
            error = SoundError::FormatNotSupported;
            continue;
        }
        auto opened = decoder->Open(file, hint);
        if (opened) return opened;
        if (opened.Error != SoundError::FormatFile) error = opened.Error;
    }
    return error;
}

Outcome<std::unique_ptr<SoundWriter>> SoundFiles::Create(const std::filesystem::path& path,
                                                         FormatType type,
                                                         const OutputSettings& settings) const {
    const auto plan = PlanOutput(path, type, settings);
    if (!plan) return plan.Error;
    const Encoder* encoder = backends_.EncoderOf(EncoderFor(plan.Result.Format));
    if (!encoder) return SoundError::FormatNotSupported;

    std::error_code reason;
    auto file = outputs_->Create(path, reason);
    if (!file) return SoundError::FileAccess;
    auto created = encoder->Create(*file, plan.Result);
    if (!created) return created.Error;
    return std::unique_ptr<SoundWriter>(
        std::make_unique<SavedSound>(std::move(file), std::move(created.Result)));
}

bool SoundFiles::Has(const OutputFormat& format) const {
    const Encoder* encoder = backends_.EncoderOf(EncoderFor(format));
    return encoder && encoder->Has(format);
}

bool SoundFiles::ReadAs(std::unique_ptr<SoundReader>& reader, PcmFormat wanted) const {
    const PcmFormat given = reader->Description().Delivered;
    if (given == wanted) return true;
    auto converter = Converter(given, wanted);
    if (!converter) return false;
    reader = std::make_unique<ConvertingReader>(std::move(reader), std::move(converter), wanted);
    return true;
}

bool SoundFiles::WriteFrom(std::unique_ptr<SoundWriter>& writer, PcmFormat given) const {
    const PcmFormat carried = writer->Description().Carried;
    if (given == carried) return true;
    auto converter = Converter(given, carried);
    if (!converter) return false;
    writer = std::make_unique<ConvertingWriter>(std::move(writer), std::move(converter), given);
    return true;
}

std::unique_ptr<FormatConverter> SoundFiles::Converter(PcmFormat from, PcmFormat to) const {
    return FormatConverter::Make(from.Rate == to.Rate ? nullptr : backends_.Soxr(), from, to);
}

}  // namespace mavrin2::dusoro
