#include "platform/linux/temporary_folder.h"

#include <cstdlib>

#include "platform/linux/private_folder.h"

namespace mavrin2::platform {

std::filesystem::path PrivateTemporaryFolder() {
    if (const char* const named = ::secure_getenv("TMPDIR"); named && named[0] == '/') {
        if (auto folder = PrivateFolderIn(named); !folder.empty()) return folder;
    }
    return PrivateFolderIn("/tmp");
}

}  // namespace mavrin2::platform
