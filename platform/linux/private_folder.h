#pragma once

#include <filesystem>

namespace mavrin2::platform {

// A folder in `shared` that only this user can enter, created where it is missing; ends in a slash.
// Every process of the user gets the same one. Normally it is called "mavrin2-" and the user's
// number. Another user who takes that name first gains nothing: then it is the oldest folder of
// ours whose name begins so, and a new one gets a random ending. Empty if `shared` takes no folder.
std::filesystem::path PrivateFolderIn(const std::filesystem::path& shared);

// Whether the path is that of a folder which belongs to this user and which only this user can
// enter, as the system creates one in /run/user for a user who logs in.
bool IsPrivateFolder(const std::filesystem::path& path);

}  // namespace mavrin2::platform
