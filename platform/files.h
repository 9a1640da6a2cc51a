#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace mavrin2::platform {

// One open file. Offsets and sizes are bytes from the start of the file. Used on one thread.
// Closed by the destructor; everything written has reached the operating system by then.
class File {
public:
    virtual ~File() = default;

    // The bytes read into `target` from `offset`: fewer than asked for only at the end of the file,
    // or nothing when the read failed.
    virtual std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) = 0;

    // True when every byte was written; the file may have grown by a part otherwise.
    virtual bool Write(std::int64_t offset, std::span<const std::byte> source) = 0;

    // The file's present length, or nothing when it is unknown.
    virtual std::optional<std::int64_t> Length() = 0;

    // Cuts the file to `length`, which is not above its length. False if that failed, and for files
    // that are not for update.
    virtual bool Truncate(std::int64_t) { return false; }
};

// Files and folders. Failure is a null or empty result or false, never an exception. A new file is
// the user's alone where each file has rights of its own to begin with (0600 on Linux); on Windows
// it takes those of its folder, and the folder of temporary files is in the user's own profile.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    virtual std::unique_ptr<File> OpenForReading(const std::filesystem::path& path) = 0;
    virtual std::unique_ptr<File> OpenForUpdate(const std::filesystem::path& path) = 0;

    // An empty file, in place of any file of that name. A symbolic link at that place is never
    // followed.
    virtual std::unique_ptr<File> Create(const std::filesystem::path& path) = 0;

    // A name in `folder` that no file had, made as an empty file by one call that cannot be raced:
    // `prefix` + hexadecimal digits + ".tmp". Empty if the folder takes no file or has no name.
    virtual std::filesystem::path CreateUniqueFile(const std::filesystem::path& folder,
                                                   std::string_view prefix) = 0;

    virtual bool Remove(const std::filesystem::path& path) = 0;
    virtual bool IsFolder(const std::filesystem::path& path) = 0;

    // The plain files directly in `folder` whose names begin and end as given.
    virtual std::vector<std::filesystem::path> List(const std::filesystem::path& folder,
                                                    std::string_view prefix,
                                                    std::string_view suffix) = 0;

    // `folder` as an absolute path that ends in the system's separator; empty unless a process
    // could make it its current folder. The process's own current folder is not touched.
    virtual std::filesystem::path UsableFolder(const std::filesystem::path& folder) = 0;

    // The folder for temporary files, the user's alone, created where it is missing; ends in the
    // system's separator. No other user can prevent it by taking a name first. Empty if the
    // system's place for such folders cannot be written to.
    virtual std::filesystem::path TemporaryFolder() = 0;

    // Whether the drive or mount that holds `path` is a CD drive. On Linux so is a disc image that
    // the environment variable MAVRIN2_CD_IMAGES names, with colons between several, and what is
    // below it.
    virtual bool IsOnCdDrive(const std::filesystem::path& path) = 0;

    // The drive of a file on it: on Windows "D:", elsewhere all before the last separator, with a
    // disc image as MAVRIN2_CD_IMAGES spells it. The file need not exist.
    virtual std::filesystem::path DriveOf(const std::filesystem::path& path) = 0;
};

}  // namespace mavrin2::platform
