#include "control/editor/document_opening.h"

#include <string>

#include "automation/text.h"
#include "control/editor/document_loader.h"
#include "control/editor/new_work_file.h"
#include "control/editor/track_import.h"

namespace mavrin2::editor {
namespace {

std::string PcmDescription(std::int32_t frequency, std::int32_t channels) {
    return "PCM " + std::to_string(frequency) + " Hz; 16 bit; " +
           (channels == 1 ? "mono" : "stereo");
}

}  // namespace

ErrorConstants DocumentOpening::New(std::int32_t frequency, std::int32_t channels) {
    if (frequency < 1 || channels < 1 || channels > 2) {
        operation_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
        return ErrorConstants::NOERRORS;
    }
    if (!CloseDocument()) return ErrorConstants::NOERRORS;
    OperationTicket ticket(operation_.Counter, document_.History);
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    document_.Format.Frequency = frequency;
    document_.Format.Channels = channels;
    document_.Format.BitsPerSample = 16;
    NewWorkFile file(storage_);
    if (!file.Create(document_.Format) || !file.PushTo(document_.History, document_.Format)) {
        operation_.Status.LastError = ErrorConstants::FILEACCESS;
        return ErrorConstants::FILEACCESS;
    }
    ticket.Moved();
    presentation_.Rate.SetSampleRate(frequency);
    document_.Channels.Recount(channels);
    document_.Format.FormatDescription = PcmDescription(frequency, channels);
    presentation_.View.FormatChanged();
    if (!ticket.IsCurrent()) return ErrorConstants::NOERRORS;
    presentation_.Markers.RebuildDisplayList();
    if (!ticket.IsCurrent()) return ErrorConstants::NOERRORS;
    if (!presentation_.Range.RecomputeView(Bytes(0), document_.History.Current()->TotalBytes))
        return ErrorConstants::NOERRORS;
    if (ticket.IsCurrent()) presentation_.View.Redraw();
    if (ticket.IsCurrent()) operation_.Events.EndOperation();
    return ErrorConstants::NOERRORS;
}

bool DocumentOpening::CloseDocument() {
    ++closings_;
    if (document_.History.Current() && !TryClose()) return false;
    // A load from inside which this is called has no document yet, and is overtaken.
    operation_.Status.Stop();
    return true;
}

ErrorConstants DocumentOpening::Open(const std::filesystem::path& path, FormatTypeConstants type) {
    if (!CloseDocument()) return ErrorConstants::NOERRORS;
    OperationTicket ticket(operation_.Counter, document_.History);
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    Load(path, type, ticket);
    if (!ticket.IsCurrent()) return ErrorConstants::NOERRORS;
    if (operation_.Status.LastError != ErrorConstants::NOERRORS) return operation_.Status.LastError;

    if (const DocumentState* state = document_.History.Current())
        presentation_.Range.RecomputeView(Bytes(0), state->TotalBytes);
    if (ticket.IsCurrent()) presentation_.View.Redraw();
    if (ticket.IsCurrent()) operation_.Events.EndOperation();
    return ErrorConstants::NOERRORS;
}

void DocumentOpening::Load(const std::filesystem::path& path, FormatTypeConstants type,
                           OperationTicket& ticket) {
    const FileKind kind = FileKindOf(path);
    if (kind == FileKind::CdTrack) return LoadTrack(path, ticket);
    if (kind == FileKind::Wma) companion_.SetWmaMode(true);
    DocumentLoader(document_, operation_, storage_, presentation_, companion_, ticket)
        .LoadThroughCompanion(path, type);
    if (kind == FileKind::Sound && ticket.IsCurrent()) markers_.ImportMarkers(path, ticket);
    if (ticket.IsCurrent()) presentation_.Markers.RebuildDisplayList();
}

void DocumentOpening::LoadTrack(const std::filesystem::path& path, OperationTicket& ticket) {
    if (!storage_.Files.IsOnCdDrive(path)) {
        operation_.Status.LastError = ErrorConstants::FORMATFILE;
        return;
    }
    TrackImport(document_, operation_, storage_, presentation_, companion_, grabber_, ticket)
        .Import({automation::ToUtf8(automation::ToOle(storage_.Files.DriveOf(path))),
                 TrackNumberOf(path)});
}

bool DocumentOpening::TryClose() {
    const std::uint64_t number = ++closings_;
    // Whatever runs now is over, also a load that has no document yet.
    operation_.Counter.Next();
    activity_.Stop();
    // The end of playback has events, in which a host may have closed the document itself. What it
    // has begun with this one ends now.
    if (closings_ != number) return false;
    activity_.Halt();
    document_.Format.FormatDescription.clear();
    if (!document_.History.Current()) return true;
    presentation_.View.ReleaseDocument();
    document_.Steps.LastStepCount = 0;
    document_.Steps.BatchMode = false;
    document_.History.FreeChain();
    companion_.CloseFile();
    presentation_.Markers.Release();
    document_.Channels.Recount(document_.Format.Channels);
    return true;
}

}  // namespace mavrin2::editor
