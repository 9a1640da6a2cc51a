#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "platform/files.h"

namespace mavrin2::platform {

// Files and folders that exist in memory only, and that fail when a test wants them to. They act
// as files of a system do: an open file that is removed or made anew stays usable, a file needs an
// existing folder. Used on one thread; open files may outlive the file system.
//
//     MemoryFileSystem files;
//     files.AddFile("/music/song.wav", bytes);
//     files.FailNth(MemoryFileSystem::Operation::Write, 3);
//     files.SetFreeSpace(1000);
class MemoryFileSystem final : public FileSystem {
public:
    enum class Operation {
        Open,    // for reading or for update
        Create,  // also with a unique name
        Read,
        Write,
        Length,
        Remove,
        Rename  // only what replaces files does
    };

    // Has the folders `/` and `/tmp/private/`, the folder of temporary files.
    MemoryFileSystem();
    ~MemoryFileSystem() override;

    // What there is. Paths are absolute, without a drive; a relative one starts at `/`. Slashes
    // serve on every system, and what comes back has the system's own separators. Folders that lead
    // to a new file or folder are made.
    void AddFolder(const std::filesystem::path& path);
    void AddFile(const std::filesystem::path& path, std::span<const std::byte> bytes);
    void AddFile(const std::filesystem::path& path, std::string_view text);
    bool Exists(const std::filesystem::path& path) const;
    // The bytes of a file, as text where that is easier to compare; nothing for a missing file.
    std::optional<std::vector<std::byte>> Bytes(const std::filesystem::path& path) const;
    std::optional<std::string> Text(const std::filesystem::path& path) const;
    // Every file, in the order of the paths.
    std::vector<std::filesystem::path> Files() const;
    // How many files are open, so that a test can see that all were closed.
    int OpenFiles() const;

    // What fails. The nth call of an operation from now fails, once; 1 is the next one.
    void FailNth(Operation operation, int nth);
    // Each call fails from the nth from now on.
    void FailFrom(Operation operation, int nth);
    // Forgets both.
    void FailNothing();
    // Neither opening nor making nor removing succeeds at this path, or below it if it is a folder;
    // such a folder is not usable either.
    void Refuse(const std::filesystem::path& path);
    // Files can grow by so many bytes from now on, all together; a write that needs more grows its
    // file by what is left and fails. Nothing means unlimited space.
    void SetFreeSpace(std::optional<std::int64_t> bytes);

    // What else can be set.
    void SetTemporaryFolder(const std::filesystem::path& folder);  // made; empty: there is none
    void SetCdDrive(const std::filesystem::path& folder);          // it and what is below

    // How often an operation was called, failures included.
    int Calls(Operation operation) const;

    // For those that replace files. Takes the name of a file for another, also while it is open.
    std::error_code Rename(const std::filesystem::path& from, const std::filesystem::path& to);
    // Removes a file, if there is one; never fails.
    void Drop(const std::filesystem::path& path);
    bool IsRefused(const std::filesystem::path& path) const;

    std::unique_ptr<File> OpenForReading(const std::filesystem::path& path) override;
    std::unique_ptr<File> OpenForUpdate(const std::filesystem::path& path) override;
    std::unique_ptr<File> Create(const std::filesystem::path& path) override;
    std::filesystem::path CreateUniqueFile(const std::filesystem::path& folder,
                                           std::string_view prefix) override;
    bool Remove(const std::filesystem::path& path) override;
    bool IsFolder(const std::filesystem::path& path) override;
    std::vector<std::filesystem::path> List(const std::filesystem::path& folder,
                                            std::string_view prefix,
                                            std::string_view suffix) override;
    std::filesystem::path UsableFolder(const std::filesystem::path& folder) override;
    std::filesystem::path TemporaryFolder() override;
    bool IsOnCdDrive(const std::filesystem::path& path) override;
    std::filesystem::path DriveOf(const std::filesystem::path& path) override {
        return path.parent_path();
    }

private:
    class OpenFile;
    struct Controls;
    using Content = std::vector<std::byte>;

    std::unique_ptr<File> Open(const std::filesystem::path& path, bool writable);

    std::shared_ptr<Controls> controls_;
    std::map<std::filesystem::path, std::shared_ptr<Content>> files_;
    std::set<std::filesystem::path> folders_;
    std::set<std::filesystem::path> refused_;
    std::set<std::filesystem::path> cdDrives_;
    std::filesystem::path temporaryFolder_;
    unsigned nextUnique_ = 0x1a;
};

}  // namespace mavrin2::platform
