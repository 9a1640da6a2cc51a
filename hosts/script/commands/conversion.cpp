#include "hosts/script/commands/conversion.h"

#include <filesystem>
#include <set>
#include <system_error>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

std::string OutputIn(const std::filesystem::path& folder, const std::string& in,
                     const std::string& extension) {
    std::filesystem::path name = std::filesystem::path(in).filename();
    if (!extension.empty()) name.replace_extension(extension);
    return (folder / name).string();
}

}  // namespace

bool Conversion::OutputExists() const {
    std::error_code error;
    return Out != kStandardStream &&
           std::filesystem::exists(std::filesystem::symlink_status(Out, error));
}

std::vector<Conversion> ConversionsOf(const CommandLine& line) {
    const auto& operands = line.Operands();
    const auto folder = line.Value(kFolder);
    const auto extension = line.Value(kTo);
    if (!folder) {
        if (extension) throw UsageError("--to needs -o FOLDER");
        if (operands.size() != 2)
            throw UsageError("convert needs two files, IN and OUT, or -o FOLDER");
        return {{operands[0], operands[1]}};
    }
    if (operands.empty()) throw UsageError("convert needs at least one file");
    std::error_code error;
    if (!std::filesystem::is_directory(*folder, error))
        throw Failure(*folder, error ? error.message() : "is not a folder");
    std::vector<Conversion> conversions;
    std::set<std::string> outputs;
    for (const std::string& in : operands) {
        if (in == kStandardStream) throw UsageError("standard input, -, has no name for -o FOLDER");
        if (!extension && IsCdTrack(in)) throw UsageError(in + ": a track needs --to EXTENSION");
        conversions.push_back({in, OutputIn(*folder, in, extension.value_or(""))});
        if (!outputs.insert(conversions.back().Out).second)
            throw UsageError("two files would be written to '" + Printable(conversions.back().Out) +
                             "'");
    }
    return conversions;
}

}  // namespace mavrin2::script
