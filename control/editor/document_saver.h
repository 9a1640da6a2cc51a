#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "control/editor/markers/marker_files.h"
#include "control/editor/services.h"
#include "control/editor/sound_file_companion.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// Writes the document or its selection to a sound file.
class DocumentSaver {
public:
    // With this value of `selected` the whole document is written, with the progress of a
    // selection.
    static constexpr std::int16_t WholeWithSelection = 763;

    DocumentSaver(const Document& document, const Operation& operation, platform::FileSystem& files,
                  DocumentView& view, SoundFileCompanion& companion, MarkerFiles& markers)
        : document_(document),
          operation_(operation),
          files_(files),
          view_(view),
          companion_(companion),
          markers_(markers) {}

    // Does nothing without a document or while the control is busy. The result is that of this
    // call, whatever another one, made from inside an event, has left as the last error. A save
    // that is cancelled is complete with what was written.
    ErrorConstants Save(const std::filesystem::path& path, std::int16_t selected,
                        FormatTypeConstants type);

private:
    class Output;

    // The output's sample rate; nothing when it could not be created.
    std::optional<std::int32_t> CreateOutput(const std::filesystem::path& path,
                                             FormatTypeConstants type);
    void SaveThroughCompanion(const std::filesystem::path& path, std::int16_t selected,
                              FormatTypeConstants type, OperationTicket& ticket,
                              StatusGuard& status);

    Document document_;
    Operation operation_;
    platform::FileSystem& files_;
    DocumentView& view_;
    SoundFileCompanion& companion_;
    MarkerFiles& markers_;
};

}  // namespace mavrin2::editor
