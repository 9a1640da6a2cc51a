#include "hosts/script/commands/output_file.h"

#include <system_error>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {

OutputFile::OutputFile(const std::filesystem::path& target) : target_(target) {
    std::error_code error;
    staged_ = platform::SystemReplacementFiles()->Stage(target_, error);
    if (!staged_)
        throw Failure(
            target_, error == std::errc::invalid_argument ? "not a regular file" : error.message());
}

void OutputFile::Commit() {
    std::error_code error;
    if (std::filesystem::file_size(Path(), error) == 0 || error)
        throw Failure(target_, "nothing was written");
    error = staged_->Commit();
    if (error) throw Failure(target_, error.message());
}

}  // namespace mavrin2::script
