#pragma once

#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/files.h"

namespace mavrin2::platform {

// A file that a user saves: it takes its name only when it is complete, so that whatever goes wrong
// before leaves an older file of that name as it was. One that is not committed leaves nothing, nor
// does a process that is killed: what such a process may leave in a folder is removed by the next
// call for that folder. For work files, which are useless after a crash, this is too slow.
//
// A symbolic link is followed, whether or not it leads to a file. What has the name must be a plain
// file that the user may write to. It passes on its permissions, its owner and group, and its
// extended attributes (on Windows: permissions, attributes, streams). Where the system does not let
// a new file have these, and where the old one has further hard links, the old file is written over
// when the new content is complete and on the disk. That is the one case in which a crash may
// damage it; the content is then beside it as NAME.new-XXXXXXXX (Linux).

// A replacement that is written through this object. `Write`, once failed, fails always.
class ReplacementFile : public File {
public:
    // Puts the content on the disk and gives it the name. An error, also if any Write has failed,
    // leaves an older file as it was. To be called at most once; nothing can be written afterwards.
    virtual std::error_code Commit() = 0;
};

// A replacement that is written by its name, for components that want a path.
class StagedFile {
public:
    virtual ~StagedFile() = default;

    // Where to write: the target's own file name in a folder of this object's. No file at first.
    virtual const std::filesystem::path& Path() const = 0;

    // As for ReplacementFile; the file at `Path` must have been closed by its writer.
    virtual std::error_code Commit() = 0;
};

// Used on one thread at a time, as is each result. The results may outlive it.
class ReplacementFiles {
public:
    virtual ~ReplacementFiles() = default;

    // Null, and why in `error`, if the folder is missing or takes no file, or something other than
    // a writable plain file has the name.
    virtual std::unique_ptr<ReplacementFile> Create(const std::filesystem::path& target,
                                                    std::error_code& error) = 0;
    virtual std::unique_ptr<StagedFile> Stage(const std::filesystem::path& target,
                                              std::error_code& error) = 0;
};

// The adapter of the running system. Never null.
std::shared_ptr<ReplacementFiles> SystemReplacementFiles();

}  // namespace mavrin2::platform
