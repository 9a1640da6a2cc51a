#include "control/editor/document_opening.h"

#include <string>

#include "control/editor/document_loader.h"
#include "control/editor/file_kind.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {
namespace {

std::string PcmDescription(std::int32_t frequency, std::int32_t channels) {
    return "PCM " + std::to_string(frequency) + " Hz; 16 bit; " +
           (channels == 1 ? "mono" : "stereo");
}

}  // namespace

void DocumentOpening::New(std::int32_t frequency, std::int32_t channels) {
    if (frequency < 1 || channels < 1 || channels > 2) {
        services_.Status.LastError = ErrorConstants::FORMATNOTSUPPORT;
        return;
    }
    CloseDocument();
    OperationTicket ticket(services_.Operations, services_.History);
    services_.Status.LastError = ErrorConstants::NOERRORS;
    services_.Format.Frequency = frequency;
    services_.Format.Channels = channels;
    services_.Format.BitsPerSample = 16;
    if (!PushEmptyDocument()) return;
    ticket.Moved();
    services_.Channels.Recount(channels);
    services_.Format.FormatDescription = PcmDescription(frequency, channels);
    if (!services_.Range.RecomputeView(Bytes(0), services_.History.Current()->TotalBytes)) return;
    if (!ticket.IsCurrent()) return;
    services_.View.Redraw();
    if (ticket.IsCurrent()) services_.Events.EndOperation();
}

void DocumentOpening::CloseDocument() {
    if (services_.History.Current()) Close();
    // A load from inside which this is called has no document yet, and is overtaken.
    services_.Status.Status = StatusConstants::Idle;
}

bool DocumentOpening::PushEmptyDocument() {
    auto state = std::make_unique<DocumentState>();
    state->WorkFilePath = services_.Temporary.MakeTempFileName();
    state->Frequency = services_.Format.Frequency;
    state->Channels = services_.Format.Channels;
    WaveStream stream(services_.Files);
    if (state->WorkFilePath.empty() ||
        !stream.Create(state->WorkFilePath, state->Frequency, state->Channels) || !stream.Close()) {
        services_.Temporary.Remove(state->WorkFilePath);
        return false;
    }
    services_.History.PushState(std::move(state));
    return true;
}

ErrorConstants DocumentOpening::Open(const std::filesystem::path& path, FormatTypeConstants type) {
    CloseDocument();
    OperationTicket ticket(services_.Operations, services_.History);
    services_.Status.LastError = ErrorConstants::NOERRORS;
    Load(path, type, ticket);
    if (!ticket.IsCurrent()) return ErrorConstants::NOERRORS;
    if (services_.Status.LastError != ErrorConstants::NOERRORS) return services_.Status.LastError;

    if (const DocumentState* state = services_.History.Current())
        services_.Range.RecomputeView(Bytes(0), state->TotalBytes);
    if (ticket.IsCurrent()) services_.View.Redraw();
    if (ticket.IsCurrent()) services_.Events.EndOperation();
    return ErrorConstants::NOERRORS;
}

void DocumentOpening::Load(const std::filesystem::path& path, FormatTypeConstants type,
                           OperationTicket& ticket) {
    const FileKind kind = FileKindOf(path);
    if (kind == FileKind::CdTrack) {
        // Tracks come from a drive through a companion of their own, which is not there yet.
        services_.Status.LastError = services_.Files.IsOnCdDrive(path)
                                         ? ErrorConstants::CONTROLNOTINSTALLED
                                         : ErrorConstants::FORMATFILE;
        return;
    }
    if (kind == FileKind::Wma) companion_.SetWmaMode(true);
    DocumentLoader(services_, companion_, ticket).LoadThroughCompanion(path, type);
}

void DocumentOpening::Close() {
    // Whatever runs now is over, also a load that has no document yet.
    services_.Operations.Next();
    activity_.Stop();
    if (!services_.History.Current()) return;
    services_.View.ReleaseDocument();
    services_.Settings.LastStepCount = 0;
    services_.Settings.BatchMode = false;
    services_.History.FreeChain();
    companion_.CloseFile();
    services_.Format.FormatDescription.clear();
    services_.Channels.Recount(services_.Format.Channels);
}

}  // namespace mavrin2::editor
