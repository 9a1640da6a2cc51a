#pragma once

#include <filesystem>
#include <memory>

#include "companions/ontiva/formats/sound_format.h"
#include "platform/files.h"
#include "platform/replacement_file.h"

namespace mavrin2::ontiva {

// Tags and markers in files on disk.
class InfoFiles {
public:
    InfoFiles(std::shared_ptr<platform::FileSystem> files,
              std::shared_ptr<platform::ReplacementFiles> replacements,
              std::unique_ptr<const Libraries> libraries)
        : files_(std::move(files)),
          replacements_(std::move(replacements)),
          libraries_(std::move(libraries)) {}

    // Nothing for a file that no header describes. Throws FileFault, MissingLibrary.
    SoundInfo Read(const std::filesystem::path& path) const;
    // The file is changed wholly or not at all. Throws FileFault, NotWritable, MissingLibrary.
    void Write(const std::filesystem::path& path, const SoundInfo& info) const;

private:
    std::unique_ptr<platform::File> Open(const std::filesystem::path& path) const;
    void WriteInPlace(const std::filesystem::path& path, std::int64_t length,
                      const TailEdit& edit) const;
    void Replace(const std::filesystem::path& path, const EditedFile& file) const;

    std::shared_ptr<platform::FileSystem> files_;
    std::shared_ptr<platform::ReplacementFiles> replacements_;
    std::unique_ptr<const Libraries> libraries_;
};

}  // namespace mavrin2::ontiva
