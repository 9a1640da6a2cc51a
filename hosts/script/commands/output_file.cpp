#include "hosts/script/commands/output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

namespace fs = std::filesystem;

std::string Reason(int error) {
    return std::generic_category().message(error);
}

// What a link leads to is what is replaced.
fs::path Resolve(const fs::path& path) {
    std::error_code error;
    const fs::path resolved = fs::canonical(path, error);
    return error ? path : resolved;
}

void CheckReplaceable(const fs::path& given, const fs::path& target) {
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (!fs::exists(status)) return;
    if (fs::is_directory(status)) throw Failure(given, Reason(EISDIR));
    // A device would be replaced by a file.
    if (!fs::is_regular_file(status)) throw Failure(given, "Not a regular file");
    if (::access(target.c_str(), W_OK) != 0) throw Failure(given, Reason(errno));
}

// What the format is chosen by, also in a name that is nothing else.
std::string ExtensionOf(const fs::path& path) {
    const std::string name = path.filename();
    const std::size_t point = name.rfind('.');
    return point == std::string::npos ? "" : name.substr(point);
}

// The permissions that a file written in place would have.
mode_t ModeFor(const fs::path& target) {
    struct stat old = {};
    if (::stat(target.c_str(), &old) == 0) return old.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

OutputFile::OutputFile(const fs::path& target) : given_(target), target_(Resolve(target)) {
    CheckReplaceable(given_, target_);
    const std::string extension = ExtensionOf(target_);
    std::string pattern = target_.parent_path() / (".mavrin2-XXXXXX" + extension);
    const int file = ::mkstemps(pattern.data(), static_cast<int>(extension.size()));
    if (file < 0) throw Failure(given_, Reason(errno));
    ::close(file);
    path_ = pattern;
}

OutputFile::~OutputFile() {
    std::error_code error;
    if (!committed_) fs::remove(path_, error);
}

void OutputFile::Commit() {
    std::error_code error;
    if (fs::file_size(path_, error) == 0 || error) throw Failure(given_, "Nothing was written");
    if (::chmod(path_.c_str(), ModeFor(target_)) != 0) throw Failure(given_, Reason(errno));
    fs::rename(path_, target_, error);
    if (error) throw Failure(given_, error.message());
    committed_ = true;
}

}  // namespace mavrin2::script
