#include "control/editor/document_saver.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace mavrin2::editor {
namespace {

using Samples = SoundFileCompanion::Samples;

// Hands a block to the companion, whole or in the small pieces that a WMA encoder wants.
class BlockSender {
public:
    BlockSender(SoundFileCompanion& companion, bool pieces, std::int32_t frequency)
        : companion_(companion), pieceSize_(pieces ? std::max(frequency / 2, 1) : 0) {}

    bool Send(const Samples& block) {
        if (pieceSize_ == 0) return companion_.WriteBlock(block);
        const automation::ArrayView<std::int16_t> view(block.Get());
        Samples piece(pieceSize_);
        for (auto rest = view.Elements(); !rest.empty();) {
            const std::size_t count = std::min(pieceSize_, rest.size());
            if (count < pieceSize_) piece.Resize(count);
            const automation::ArrayView<std::int16_t> target(piece.Get());
            std::ranges::copy(rest.first(count), target.Elements().begin());
            if (!companion_.WriteBlock(piece)) return false;
            rest = rest.subspan(count);
        }
        return true;
    }

private:
    SoundFileCompanion& companion_;
    std::size_t pieceSize_;
};

}  // namespace

// One run of writing, from the created output file to its end.
class DocumentSaver::Output {
public:
    Output(const DocumentSaver& saver, OperationTicket& ticket, WaveStream& source,
           std::int16_t selected)
        : document_(saver.document_),
          operation_(saver.operation_),
          view_(saver.view_),
          companion_(saver.companion_),
          ticket_(ticket),
          source_(source) {
        const ZoomLevel& level = document_.History.Current()->Level();
        // In 32 bits, as the progress has always counted.
        total_ = selected ? static_cast<std::int32_t>((level.EndSelect - level.StartSelect).Count())
                          : std::int64_t{source.Length()};
        if (selected && selected != WholeWithSelection) {
            source.Seek(level.StartSelect.Count());
            limit_ = total_;
        }
    }

    // The code is that of the failure; an output that could not be completed is gone by then.
    ErrorConstants Write(bool pieces) {
        // Ten bytes for each hertz: five seconds of mono, half as much of stereo.
        const auto blockSamples = static_cast<std::size_t>(document_.Format.Frequency) * 5;
        Samples block(blockSamples);
        BlockSender sender(companion_, pieces, document_.Format.Frequency);
        view_.RenderBackground();
        bool more = Report(0);
        while (more) {
            const auto samples = Fill(block, blockSamples);
            if (!samples) {
                // The rest of the document cannot be had: better no file than half of one.
                companion_.AbandonOutput();
                return ErrorConstants::FILEACCESS;
            }
            if (*samples == 0) break;
            if (*samples < blockSamples) block.Resize(*samples);
            if (!sender.Send(block)) return companion_.ReasonOfFailure();
            // If a host calls Stop in an event, the next block is still written but not reported.
            if (operation_.Status.Idle()) break;
            written_ += static_cast<std::int64_t>(*samples) * 2;
            more = Report(PercentDone()) && *samples == blockSamples;
            if (ticket_.IsCurrent()) view_.Redraw();
            more = more && ticket_.IsCurrent();
        }
        return ErrorConstants::NOERRORS;
    }

private:
    // The samples read, 0 at the end of what is to be written; nothing when reading failed.
    std::optional<std::size_t> Fill(const Samples& block, std::size_t capacity) {
        const automation::ArrayView<std::int16_t> view(block.Get());
        const std::int64_t left = std::max<std::int64_t>(limit_ - written_, 0);
        const auto bytes = static_cast<std::size_t>(
            std::min<std::int64_t>(static_cast<std::int64_t>(capacity) * 2, left));
        const auto read = source_.ReadWhole(std::as_writable_bytes(view.Elements()).first(bytes));
        if (!read) return std::nullopt;
        return *read / 2;
    }

    int PercentDone() const {
        const double part = static_cast<double>(written_) / static_cast<double>(total_);
        // After a deletion, the selection may end before its start.
        return static_cast<int>(std::clamp(part, 0.0, 1.0) * 100);
    }

    bool Report(int percent) {
        view_.ShowProgress(percent);
        operation_.Events.BlockOperation(percent);
        return ticket_.IsCurrent();
    }

    const Document& document_;
    const Operation& operation_;
    DocumentView& view_;
    SoundFileCompanion& companion_;
    OperationTicket& ticket_;
    WaveStream& source_;
    std::int64_t total_;
    std::int64_t limit_ = std::numeric_limits<std::int64_t>::max();
    std::int64_t written_ = 0;
};

ErrorConstants DocumentSaver::Save(const std::filesystem::path& path, std::int16_t selected,
                                   FormatTypeConstants type) {
    if (!Ready(document_, operation_)) return ErrorConstants::NOERRORS;
    OperationTicket ticket(operation_.Counter, document_.History);
    StatusGuard status(operation_.Status, ticket);
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    SaveThroughCompanion(path, selected, type, ticket, status);
    if (!ticket.IsCurrent()) return ErrorConstants::NOERRORS;
    if (operation_.Status.LastError != ErrorConstants::NOERRORS) return operation_.Status.LastError;
    view_.RenderBackground();
    view_.Redraw();
    if (ticket.IsCurrent()) operation_.Events.EndOperation();
    return ErrorConstants::NOERRORS;
}

void DocumentSaver::SaveThroughCompanion(const std::filesystem::path& path, std::int16_t selected,
                                         FormatTypeConstants type, OperationTicket& ticket,
                                         StatusGuard& status) {
    const DocumentState& state = *document_.History.Current();
    // The work file is never written over by an export of itself.
    if (path.native() == state.WorkFilePath.native()) return;
    const FileKind kind = FileKindOf(path);
    if (kind == FileKind::CdTrack) return;
    if (kind == FileKind::Wma) companion_.SetWmaMode(true);
    const bool pieces = type == FormatTypeConstants::WMA ||
                        (type == FormatTypeConstants::DEFAULT && kind == FileKind::Wma);

    ErrorConstants& error = operation_.Status.LastError;
    WaveStream source(files_);
    std::optional<std::int32_t> rate;  // of an output
    if (!source.OpenWhole(state.WorkFilePath, state.TotalBytes)) {
        error = ErrorConstants::FILEACCESS;
    } else if ((rate = CreateOutput(path, type))) {
        status.Set(StatusConstants::Saving);
        const std::uint64_t session = companion_.Session();
        const ErrorConstants outcome = Output(*this, ticket, source, selected).Write(pieces);
        if (!ticket.IsCurrent()) {
            if (companion_.Session() == session) companion_.CloseFile();
            return;
        }
        error = outcome;
    }
    const std::string description = companion_.GetFormatText();
    const bool closed = companion_.CloseFile();
    if (rate && !closed && error == ErrorConstants::NOERRORS) error = companion_.ReasonOfFailure();
    if (error != ErrorConstants::NOERRORS) return;
    document_.Format.FormatDescription = description;
    const double ratio = static_cast<double>(*rate) / document_.Format.Frequency;
    // Only into a file that this save has completed: an older one of the name keeps its own.
    markers_.ExportMarkers(path, selected != 0, ratio > 0 ? ratio : 1, ticket);
}

std::optional<std::int32_t> DocumentSaver::CreateOutput(const std::filesystem::path& path,
                                                        FormatTypeConstants type) {
    const DocumentFormat& format = document_.Format;
    companion_.SetPcmFormat(format.Frequency, format.Channels);
    companion_.CreateSoundFile(path, type);
    companion_.GetErrorCode(operation_.Status.LastError);
    if (operation_.Status.LastError != ErrorConstants::NOERRORS) return std::nullopt;
    const std::int32_t rate = companion_.GetFrequency();
    companion_.SetPcmFormat(format.Frequency, format.Channels);
    return rate;
}

}  // namespace mavrin2::editor
