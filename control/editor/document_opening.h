#pragma once

#include <filesystem>

#include "control/editor/activity.h"
#include "control/editor/editor_services.h"
#include "control/editor/sound_file_companion.h"

namespace mavrin2::editor {

// The ways in which a document begins and ends: a new one, one from a sound file, none.
class DocumentOpening {
public:
    DocumentOpening(EditorServices& services, SoundFileCompanion& companion, Activity& activity)
        : services_(services), companion_(companion), activity_(activity) {}

    // An empty document. With a format that no document has (`frequency` below 1, `channels`
    // neither 1 nor 2) the last error becomes FORMATNOTSUPPORT and nothing else changes.
    void New(std::int32_t frequency, std::int32_t channels);

    // Closes what is open and reads a file. The result is that of this call, whatever another one,
    // made from inside an event, has left as the last error.
    ErrorConstants Open(const std::filesystem::path& path, FormatTypeConstants type);

    void Close();

private:
    void CloseDocument();
    // False when it could not be made.
    bool PushEmptyDocument();
    void Load(const std::filesystem::path& path, FormatTypeConstants type, OperationTicket& ticket);

    EditorServices& services_;
    SoundFileCompanion& companion_;
    Activity& activity_;
};

}  // namespace mavrin2::editor
