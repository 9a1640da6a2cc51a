#include "platform/linux/base/file_attributes.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <vector>

namespace mavrin2::platform {
namespace {

constexpr const char* AccessList = "system.posix_acl_access";

// Set by the system for every file; often only the superuser may.
bool IsSystemLabel(std::string_view name) {
    return name.starts_with("security.") || name.starts_with("trusted.");
}

bool CopyOwner(const struct stat& source, int target) {
    struct stat present = {};
    if (::fstat(target, &present) != 0) return false;
    if (present.st_uid == source.st_uid && present.st_gid == source.st_gid) return true;
    return ::fchown(target, source.st_uid, source.st_gid) == 0;
}

bool CopyExtended(const char* source, const char* name, int target) {
    const ssize_t size = ::getxattr(source, name, nullptr, 0);
    if (size < 0) return false;
    std::vector<char> value(static_cast<std::size_t>(size));
    return ::getxattr(source, name, value.data(), value.size()) == size &&
           ::fsetxattr(target, name, value.data(), value.size(), 0) == 0;
}

bool CopyAllExtended(const char* source, int target) {
    const ssize_t size = ::listxattr(source, nullptr, 0);
    if (size <= 0) return true;
    std::string names(static_cast<std::size_t>(size), '\0');
    if (::listxattr(source, names.data(), names.size()) != size) return false;
    bool all = true;
    for (std::size_t at = 0; at < names.size(); at += std::string_view(&names[at]).size() + 1) {
        const char* const name = &names[at];
        all = (CopyExtended(source, name, target) || IsSystemLabel(name)) && all;
    }
    return all;
}

}  // namespace

bool CopyAttributes(const std::filesystem::path& source, int target) {
    struct stat status = {};
    if (::stat(source.c_str(), &status) != 0) return false;
    const bool owner = CopyOwner(status, target);
    // One that the new file has from its folder; the old file's own is among those copied.
    ::fremovexattr(target, AccessList);
    // After the owner, a change of which takes permissions away.
    const bool permissions = ::fchmod(target, status.st_mode & 07777) == 0;
    return CopyAllExtended(source.c_str(), target) && owner && permissions;
}

}  // namespace mavrin2::platform
