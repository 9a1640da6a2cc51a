#pragma once

#include <filesystem>

#include "control/editor/services.h"
#include "control/editor/wave_stream.h"

namespace mavrin2::editor {

// A work file that is being written. It becomes a version of the document or is deleted again.
class NewWorkFile {
public:
    explicit NewWorkFile(const Storage& storage)
        : temporary_(storage.Temporary), stream_(storage.Files) {}
    NewWorkFile(const NewWorkFile&) = delete;
    NewWorkFile& operator=(const NewWorkFile&) = delete;
    ~NewWorkFile() { Discard(); }

    // An empty file with a new unique name, for samples of this format. False when the folder of
    // temporary files does not take it.
    bool Create(const DocumentFormat& format);
    WaveStream& Stream() { return stream_; }

    // Completes the file and makes it the current version, which then owns it. False when the file
    // could not be completed.
    bool PushTo(UndoHistory& history, const DocumentFormat& format);
    void Discard();

private:
    TemporaryFiles& temporary_;
    WaveStream stream_;
    std::filesystem::path path_;  // empty while there is nothing to delete
};

}  // namespace mavrin2::editor
