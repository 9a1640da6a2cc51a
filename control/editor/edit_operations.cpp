#include "control/editor/edit_operations.h"

#include <algorithm>
#include <new>

#include "control/editor/block_copy.h"
#include "control/editor/crossfade.h"
#include "control/editor/samples.h"
#include "control/signal/mixing.h"
#include "control/signal/mul_div.h"

namespace mavrin2::editor {
namespace {

int PercentOf(std::int64_t part, std::int64_t whole) {
    if (whole <= 0) return 100;
    return static_cast<int>(std::min(1.0, static_cast<double>(part) / static_cast<double>(whole)) *
                            100);
}

std::uint32_t BytesPerSecond(const DocumentFormat& format) {
    return static_cast<std::uint32_t>(format.Frequency * format.FrameSize().Count());
}

// FileBufferSize milliseconds, or a second where the material is not longer than that.
std::uint32_t PasteBlockSize(const EditSettings& settings, const DocumentFormat& format,
                             std::int64_t length) {
    const std::uint32_t second = BytesPerSecond(format);
    const std::int32_t block =
        signal::MulDiv(settings.FileBufferSize, static_cast<std::int32_t>(second), 1000);
    return block > 0 && block < length ? static_cast<std::uint32_t>(block) : second;
}

}  // namespace

bool EditOperations::Begin(bool needsSelection) {
    if (!Ready(document_, operation_)) return false;
    if (needsSelection && !document_.History.Current()->Selected) return false;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    return true;
}

void EditOperations::Copy() {
    if (Begin(true)) CopySelection();
}

void EditOperations::Cut() {
    if (Begin(true) && CopySelection()) DeleteSelect();
}

bool EditOperations::CopySelection() {
    const OperationTicket ticket(operation_.Counter, document_.History);
    StatusGuard status(operation_.Status, ticket);
    const ErrorConstants error = WriteClip(ticket, status);
    if (!ticket.IsCurrent()) return false;
    status.End();
    operation_.Status.LastError = error;
    operation_.Events.EndOperation();
    return ticket.IsCurrent() && error == ErrorConstants::NOERRORS;
}

ErrorConstants EditOperations::WriteClip(const OperationTicket& ticket, StatusGuard& status) {
    const DocumentState& version = *document_.History.Current();
    const DocumentFormat& format = document_.Format;
    const Bytes start = version.Level().StartSelect;
    const std::int64_t length = (version.Level().EndSelect - start).Count();
    BlockBuffer buffer(storage_.Memory);
    if (!buffer.Take()) return ErrorConstants::MEMORY;
    WaveStream source(storage_.Files);
    WaveStream clip(storage_.Files);
    if (!source.OpenWhole(version.WorkFilePath, version.TotalBytes) ||
        !clip.Create(storage_.Settings.TempFileName, format.Frequency, format.Channels))
        return ErrorConstants::FILEACCESS;
    source.Seek(start.Count());
    status.Set(StatusConstants::CopyingBlock);
    const CopyEnd end =
        CopyBlocks(source, clip, length, BlockSize(storage_.Settings, source, length), buffer, [&] {
            operation_.Events.BlockOperation(PercentOf(clip.Length(), length));
            return ticket.IsCurrent() && !operation_.Status.Idle();
        });
    if (clip.Close() && end != CopyEnd::Failed) return ErrorConstants::NOERRORS;
    // A part would be pasted as if it were all of it.
    storage_.Files.Remove(clip.Path());
    return ErrorConstants::FILEACCESS;
}

void EditOperations::DeleteSelect() {
    if (!Begin(true)) return;
    const ZoomLevel level = document_.History.Current()->Level();
    RangeEdit edit(document_, operation_, storage_, presentation_, StatusConstants::DeleteSelect,
                   {level.StartSelect, level.EndSelect}, Bytes(0));
    if (edit.BeginEdit()) edit.CommitEdit();
}

void EditOperations::Paste() {
    if (!Begin(false)) return;
    ClipMaterial clip(storage_, document_.Format);
    if (!OpenClip(clip)) return;
    clip.SetBlockSize(PasteBlockSize(storage_.Settings, document_.Format, clip.Length()));
    PasteMaterial(StatusConstants::Paste, clip, clip.ConvertedLength());
}

void EditOperations::PasteFromFile(const std::filesystem::path& path) {
    if (!Begin(false)) return;
    FileMaterial file(document_.Format);
    if (OpenFile(file, path))
        PasteMaterial(StatusConstants::PasteFromFile, file, Bytes(file.Length()));
}

void EditOperations::Mix(float documentLevel, float materialLevel) {
    if (!Begin(false)) return;
    ClipMaterial clip(storage_, document_.Format);
    if (!OpenClip(clip)) return;
    clip.SetBlockSize(BytesPerSecond(document_.Format));
    MixMaterial(StatusConstants::Mix, clip, documentLevel, materialLevel);
}

void EditOperations::MixFromFile(float documentLevel, const std::filesystem::path& path,
                                 float materialLevel) {
    constexpr std::size_t kLeastValues = 3;
    if (!Begin(false)) return;
    FileMaterial file(document_.Format, kLeastValues);
    if (OpenFile(file, path))
        MixMaterial(StatusConstants::MixFromFile, file, documentLevel, materialLevel);
}

// Without a clip file there is nothing to paste, which is no error.
bool EditOperations::OpenClip(ClipMaterial& clip) {
    if (!clip.Open(storage_.Settings.TempFileName)) return false;
    if (clip.IsSupported()) return true;
    operation_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
    return false;
}

bool EditOperations::OpenFile(FileMaterial& file, const std::filesystem::path& path) {
    if (!newCompanion_(file.Companion())) return false;
    operation_.Status.LastError = file.Open(path);
    return operation_.Status.LastError == ErrorConstants::NOERRORS;
}

EditRegion EditOperations::PastedRegion() const {
    const DocumentState& version = *document_.History.Current();
    const ZoomLevel level = version.Level();
    if (version.Selected) return {level.StartSelect, level.EndSelect};
    // Inserted sound takes the place of what it fades in over.
    const Bytes faded = PasteCrossfade::LengthOf(storage_.Settings, document_.Format);
    return {level.StartSelect,
            std::max(std::min(level.StartSelect + faded, version.TotalBytes), level.StartSelect)};
}

void EditOperations::PasteMaterial(StatusConstants value, Material& material,
                                   std::optional<Bytes> length) {
    RangeEdit edit(document_, operation_, storage_, presentation_, value, PastedRegion(), length);
    if (value == StatusConstants::Paste) edit.SelectResult();
    if (!edit.BeginEdit()) return;
    PasteCrossfade crossfade(storage_, document_.Format);
    const ErrorConstants error = crossfade.Read(edit.Source());
    if (error != ErrorConstants::NOERRORS) {
        edit.AbandonEdit(error);
        return;
    }
    const auto fade = [&](const Material::Block& block) {
        crossfade.Apply(block);
        return edit.Target().Write(block.Sound) ? Passed::Written : Passed::Failed;
    };
    Transfer(edit, material, fade, [&] {
        return PercentOf(material.Position() + edit.Source().DataPos(),
                         material.Length() + edit.Source().Length());
    });
}

void EditOperations::MixMaterial(StatusConstants value, Material& material, float documentLevel,
                                 float materialLevel) {
    const double documentGain = double{documentLevel} / 100;
    const double materialGain = double{materialLevel} / 100;
    const Bytes start = document_.History.Current()->Level().StartSelect;
    // The length stays: each sample that is written replaces one.
    RangeEdit edit(document_, operation_, storage_, presentation_, value, {start, start}, Bytes(0));
    if (!edit.BeginEdit()) return;
    BlockBuffer buffer(storage_.Memory);
    if (!buffer.Take()) {
        edit.AbandonEdit(ErrorConstants::MEMORY);
        return;
    }
    const auto mix = [&](const Material::Block& block) {
        for (std::span<std::byte> added = block.Sound; !added.empty();) {
            const auto place = buffer.PieceFor(edit.Target().FileOffset(), added.size());
            const auto read = edit.Source().ReadWhole(place);
            if (!read) return Passed::Failed;
            if (*read == 0)  // the end of the document
                return added.size() == block.Sound.size() ? Passed::End : Passed::Written;
            limitedSamples_ += static_cast<std::int64_t>(
                signal::MixLimited(AsSamples(place.first(*read)), AsSamples(added.first(*read)),
                                   documentGain, materialGain));
            if (!edit.Target().Write(place.first(*read))) return Passed::Failed;
            edit.SetEnd(Bytes(edit.Source().DataPos()));
            added = added.subspan(*read);
        }
        return Passed::Written;
    };
    Transfer(edit, material, mix, [&] { return PercentRead(edit.Source()); });
}

void EditOperations::Transfer(RangeEdit& edit, Material& material, const Process& process,
                              const std::function<int()>& percent) {
    Material::Ending ending;
    try {
        ending = PassBlocks(edit, material, process, percent);
    } catch (const std::bad_alloc&) {
        ending = {ErrorConstants::MEMORY, false};
    }
    limitedSamples_ += material.LimitedSamples();
    if (!ending.KeepsPart) {
        edit.AbandonEdit(ending.Error);
        return;
    }
    if (!edit.IsCurrent()) return;
    operation_.Status.LastError = ending.Error;
    material.Close();
    edit.CommitEdit();
}

Material::Ending EditOperations::PassBlocks(RangeEdit& edit, Material& material,
                                            const Process& process,
                                            const std::function<int()>& percent) {
    constexpr Material::Ending kComplete;
    for (bool written = false;; written = true) {
        const Material::Block block = material.Next(edit.Target().FileOffset());
        if (block.Sound.empty()) {
            Material::Ending ending = material.End();
            if (ending.Error != ErrorConstants::NOERRORS && !written) ending.KeepsPart = false;
            return ending;
        }
        const Passed passed = process(block);
        if (passed == Passed::Failed) return {ErrorConstants::FILEACCESS, false};
        // A host that cancels keeps what is there.
        if (passed == Passed::End || !edit.ReportBlock(percent())) return kComplete;
    }
}

}  // namespace mavrin2::editor
