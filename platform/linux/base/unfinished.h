#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/linux/base/descriptor.h"

namespace mavrin2::platform {

// What is on its way to become a file, in the folder of that file. Whatever of it has a name there
// is called ".mavrin2-" + 16 hexadecimal digits + ".tmp", and is locked by the process that needs
// it, so that others can tell which are of processes that have died. The kernel ends the lock with
// the process.

// An open file, without a name where the file system has such files.
struct UnfinishedFile {
    Descriptor File;
    std::filesystem::path Name;  // empty while it has none
};

// With the permissions of any new file. Without a descriptor on failure.
UnfinishedFile CreateUnfinishedFile(const std::filesystem::path& folder, std::error_code& error);

// Gives the file the first free name, if it has none.
std::error_code NameUnfinishedFile(UnfinishedFile& file, const std::filesystem::path& folder);

// An open folder that only the user can enter.
struct UnfinishedFolder {
    Descriptor Folder;  // holds the lock
    std::filesystem::path Name;
};

UnfinishedFolder CreateUnfinishedFolder(const std::filesystem::path& folder,
                                        std::error_code& error);

// So many random hexadecimal digits, at most 16.
std::string RandomDigits(std::size_t count);

// Gives an open file that has no name this one; fails if there is such a file.
std::error_code LinkFile(int file, const std::filesystem::path& name);

// Removes what dead processes of this user have left in `folder`.
void RemoveAbandoned(const std::filesystem::path& folder);

}  // namespace mavrin2::platform
