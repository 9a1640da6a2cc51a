#include "hosts/script/commands/output_file.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/input_file.h"
#include "platform/ports.h"
#include "platform/standard_streams.h"

namespace mavrin2::script {

namespace {

// Why a file of that name cannot be written. Of a new one it is the folder that matters.
std::string ReasonOf(std::error_code error, const std::filesystem::path& target) {
    if (error == std::errc::invalid_argument) return "not a regular file";
    const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
    if (error == std::errc::no_such_file_or_directory)
        return "the folder " + folder + " does not exist";
    std::error_code unknown;
    if (error == std::errc::permission_denied)
        return (std::filesystem::exists(target, unknown)
                    ? "cannot be replaced: "
                    : "cannot be written to the folder " + folder + ": ") +
               error.message();
    return error.message();
}

}  // namespace

OutputFile::OutputFile(const std::filesystem::path& target) : OutputFile(target.string(), target) {}

OutputFile::OutputFile(std::string name, const std::filesystem::path& target)
    : name_(std::move(name)) {
    std::error_code error;
    staged_ = platform::SystemReplacementFiles()->Stage(target, error);
    if (!staged_) throw Failure(name_, ReasonOf(error, target));
}

OutputFile OutputFile::OnStandardOutput(const std::string& extension) {
    if (platform::StandardOutputIsTerminal())
        throw Failure("standard output", "a terminal does not show it; try > FILE or | PROGRAM");
    OutputFile output("standard output", TemporaryFolder() + "output" + extension);
    output.standardOutput_ = true;
    return output;
}

void OutputFile::Commit() {
    std::error_code error;
    if (std::filesystem::file_size(Path(), error) == 0 || error)
        throw Failure(name_, "nothing was written");
    if (standardOutput_) return CopyToStandardOutput();
    error = staged_->Commit();
    if (error) throw Failure(name_, error.message());
}

void OutputFile::CopyToStandardOutput() const {
    constexpr std::size_t kBlock = std::size_t{1} << 20;
    const auto file = platform::SystemPorts().Files->OpenForReading(Path());
    std::vector<std::byte> block(kBlock);
    for (std::int64_t at = 0;;) {
        const auto count = file ? file->Read(at, block) : std::nullopt;
        if (!count)
            throw Failure(name_, "its temporary file " + Path().string() + " cannot be read");
        if (*count == 0) return;
        const auto error = platform::WriteStandardOutput(std::span(block).first(*count));
        if (error == std::errc::operation_canceled) throw Interruption();
        if (error) throw Failure(name_, error.message());
        at += static_cast<std::int64_t>(*count);
    }
}

}  // namespace mavrin2::script
