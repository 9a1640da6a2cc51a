#include "control/editor/format_conversion.h"

#include <algorithm>
#include <new>
#include <vector>

#include "control/editor/block_buffer.h"
#include "control/editor/block_copy.h"
#include "control/editor/markers/marker_events.h"
#include "control/editor/markers/marker_moves.h"
#include "control/signal/pcm_convert.h"

namespace mavrin2::editor {

void FormatConversion::ConvertSampleType(std::int32_t frequency, std::int32_t channels) {
    if (!Ready(document_, operation_)) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    if (frequency < 1 || channels < 1 || channels > 2) {
        operation_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
        return;
    }
    DocumentFormat wanted = document_.Format;
    wanted.Frequency = frequency;
    wanted.Channels = channels;
    if (frequency == document_.Format.Frequency && channels == document_.Format.Channels) return;

    OperationTicket ticket(operation_.Counter, document_.History);
    StatusGuard status(operation_.Status, ticket);
    NewWorkFile target(storage_);
    Outcome outcome = Convert(wanted, ticket, status, target);
    if (outcome == Outcome::Complete && !target.PushTo(document_.History, wanted))
        outcome = Fail(ErrorConstants::FILEACCESS);
    switch (outcome) {
        case Outcome::Overtaken:
            return;
        case Outcome::Cancelled:
            target.Discard();
            operation_.Events.EndOperation();
            return;
        case Outcome::Failed:
            target.Discard();
            break;
        case Outcome::Complete:
            ticket.Moved();
            if (!CarryOver(wanted, ticket)) return;
            ConvertOutputFormat();
            break;
    }
    status.End();
    Show(ticket, outcome == Outcome::Complete);
}

FormatConversion::Outcome FormatConversion::Fail(ErrorConstants error) {
    operation_.Status.LastError = error;
    return Outcome::Failed;
}

FormatConversion::Outcome FormatConversion::Convert(const DocumentFormat& wanted,
                                                    const OperationTicket& ticket,
                                                    StatusGuard& status, NewWorkFile& target) {
    const DocumentState& version = *document_.History.Current();
    WaveStream source(storage_.Files);
    if (!source.OpenWhole(version.WorkFilePath, version.TotalBytes) || !target.Create(wanted))
        return Fail(ErrorConstants::FILEACCESS);
    status.Set(StatusConstants::ConvertSampleType);
    try {
        return ConvertBlocks(wanted, ticket, source, target.Stream());
    } catch (const std::bad_alloc&) {
        return Fail(ErrorConstants::MEMORY);
    }
}

FormatConversion::Outcome FormatConversion::ConvertBlocks(const DocumentFormat& wanted,
                                                          const OperationTicket& ticket,
                                                          WaveStream& source, WaveStream& target) {
    signal::CPcmConvert convert;
    convert.SetInput(document_.Format.Frequency, document_.Format.Channels, 16);
    convert.SetOutput(wanted.Frequency, wanted.Channels, 16);
    convert.Init();
    // A tenth of a second in whole frames.
    const std::size_t frame = source.Format().Alignment;
    const std::size_t block =
        std::max<std::size_t>(source.Format().BytesPerSecond / 10 / frame, 1) * frame;
    const std::size_t room = convert.OutputCapacityFor(block);
    BlockBuffer input(storage_.Memory, block);
    BlockBuffer output(storage_.Memory, room + platform::BlockMemory::PageSize);
    if (!input.Take() || !output.Take()) return Fail(ErrorConstants::MEMORY);

    const std::int64_t before = limitedSamples_;
    for (std::int64_t offset = 0;;) {
        source.Seek(offset);
        const auto place = input.PieceFor(0, block);
        const auto read = source.ReadWhole(place);
        if (!read) return Fail(ErrorConstants::FILEACCESS);
        if (*read == 0) return Outcome::Complete;
        const auto converted = output.PieceFor(target.FileOffset(), room);
        const auto [consumed, produced] = convert.Convert(place.first(*read), converted);
        convert.UpdateFilterHistory(produced);
        limitedSamples_ = before + convert.LimitedSamples();
        if (consumed == 0) return Outcome::Complete;
        offset += static_cast<std::int64_t>(consumed);
        if (!target.Write(converted.first(produced))) return Fail(ErrorConstants::FILEACCESS);
        operation_.Events.BlockOperation(PercentRead(source));
        if (!ticket.IsCurrent()) return Outcome::Overtaken;
        if (operation_.Status.Idle()) return Outcome::Cancelled;
    }
}

bool FormatConversion::CarryOver(const DocumentFormat& wanted, const OperationTicket& ticket) {
    DocumentState& state = *document_.History.Current();
    state.Markers = state.Prev->Markers;
    std::vector<std::int32_t> moved;
    if (wanted.Frequency != document_.Format.Frequency)
        moved = ScaleMarkers(state.Markers, static_cast<double>(wanted.Frequency) /
                                                static_cast<double>(document_.Format.Frequency));
    document_.Format = wanted;
    presentation_.Rate.SetSampleRate(wanted.Frequency);
    document_.Channels.Recount(wanted.Channels);
    presentation_.View.FormatChanged();
    return ticket.IsCurrent() && ReportMarkers(operation_.Events, moved, ticket);
}

void FormatConversion::ConvertOutputFormat() {
    if (!companion_.IsPlainPcm()) return;
    DocumentFormat& format = document_.Format;
    companion_.SetFormatPCM(format.Frequency, format.Channels, companion_.GetBitsPerSample());
    format.FormatDescription = companion_.GetFormatText();
}

void FormatConversion::Show(const OperationTicket& ticket, bool converted) {
    if (!ticket.IsCurrent()) return;
    presentation_.View.BuildOverviewSummary();
    if (!ticket.IsCurrent()) return;
    const bool shown = converted ? presentation_.Range.RecomputeView(
                                       Bytes(0), document_.History.Current()->TotalBytes)
                                 : presentation_.Range.RecomputeView();
    if (!shown || !ticket.IsCurrent()) return;
    presentation_.Markers.RebuildDisplayList();
    if (!ticket.IsCurrent()) return;
    presentation_.View.Redraw();
    if (ticket.IsCurrent()) operation_.Events.EndOperation();
}

}  // namespace mavrin2::editor
