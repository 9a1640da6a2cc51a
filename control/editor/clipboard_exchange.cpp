#include "control/editor/clipboard_exchange.h"

#include <new>

#include "platform/file_copy.h"

namespace mavrin2::editor {

void ClipboardExchange::CopyToClipboard() {
    if (!Ready(document_, operation_)) return;
    edits_.Copy();
    if (!Ready(document_, operation_)) return;  // an event has started something else
    const OperationTicket ticket(operation_.Counter, document_.History);
    const StatusGuard status(operation_.Status, ticket, StatusConstants::BuildingOverview);
    const auto clip = storage_.Files.OpenForReading(storage_.Settings.TempFileName);
    if (!clip) return;
    switch (clipboard_.Put(*clip)) {
        case platform::SoundClipboard::PutOutcome::Done:
            break;
        case platform::SoundClipboard::PutOutcome::Unavailable:
            errors_.Show("KovMavrin", "Can't open clipboard window");
            break;
        case platform::SoundClipboard::PutOutcome::NotRead:
            operation_.Status.LastError = ErrorConstants::FILEACCESS;
            break;
    }
}

void ClipboardExchange::PasteFromClipboard() {
    if (!Ready(document_, operation_)) return;
    operation_.Status.LastError = ErrorConstants::NOERRORS;
    if (const std::filesystem::path sound = TakeSound(); !sound.empty())
        edits_.PasteFromFile(sound);
}

std::filesystem::path ClipboardExchange::TakeSound() {
    // The system has its clipboard open as long as this lives.
    const auto sound = clipboard_.Open();
    if (!sound) return {};
    const std::filesystem::path folder = storage_.Files.TemporaryFolder();
    std::filesystem::path path = folder / "KovClipBoardWindow.wav";
    const auto file = folder.empty() ? nullptr : storage_.Files.Create(path);
    ErrorConstants error = ErrorConstants::FILEACCESS;
    try {
        if (file && platform::CopyWholeFile(*sound, *file) == platform::CopyOutcome::Done)
            return path;
    } catch (const std::bad_alloc&) {
        error = ErrorConstants::MEMORY;
    }
    if (file) storage_.Files.Remove(path);
    operation_.Status.LastError = error;
    return {};
}

}  // namespace mavrin2::editor
