#pragma once

#include <filesystem>
#include <memory>

#include "control/editor/edit_settings.h"
#include "platform/ports.h"

namespace mavrin2::editor {

// Names, makes and cleans up the work files of one control.
class TemporaryFiles {
public:
    // Sets the folders in `settings` to the system's.
    TemporaryFiles(const platform::Ports& ports, EditSettings& settings);

    // A new empty file in the folder of temporary files; an empty path when none can be made.
    std::filesystem::path MakeTempFileName();

    void Remove(const std::filesystem::path& path);

    // Deletes what crashed programs have left, unless another control is alive. Not to be called
    // while a document is open or being made.
    void CleanTempFiles();

    // Takes the folder part of `path` for temporary files, when a program could work in it: false
    // when it could not.
    bool ChooseFolder(const std::filesystem::path& path);

    // Takes the name of the editor's own clipboard file, when it ends in "wav".
    void ChooseClipFile(const std::filesystem::path& path);

private:
    std::shared_ptr<platform::FileSystem> files_;
    std::unique_ptr<platform::InstanceLock> lock_;
    EditSettings& settings_;
};

}  // namespace mavrin2::editor
