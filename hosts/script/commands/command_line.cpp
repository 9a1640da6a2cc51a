#include "hosts/script/commands/command_line.h"

#include <algorithm>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

// A lone dash, for `mix` with a level: -@30%.
bool IsStandardStream(const std::string& argument) {
    return argument == kStandardStream || argument.starts_with("-@");
}

}  // namespace

CommandLine::CommandLine(std::span<const std::string> arguments,
                         std::span<const std::string_view> options, bool leading,
                         std::span<const std::string_view> flags) {
    bool onlyOperands = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (onlyOperands || !argument->starts_with('-') || IsStandardStream(*argument)) {
            operands_.push_back(*argument);
            onlyOperands = onlyOperands || leading;
        } else if (*argument == "--") {
            onlyOperands = true;
        } else if (*argument == "--help" || *argument == "-h") {
            help_ = true;
        } else if (*argument == "--version") {
            version_ = true;
        } else if (std::ranges::find(flags, *argument) != flags.end()) {
            values_[*argument];
        } else {
            const std::size_t sign = std::min(argument->find('='), argument->size());
            const std::string name = argument->substr(0, sign);
            if (std::ranges::find(options, name) == options.end())
                throw UsageError("unknown option '" + name + "'");
            if (sign < argument->size())
                values_[name].push_back(argument->substr(sign + 1));
            else if (++argument == arguments.end())
                throw UsageError(name + " needs a value");
            else
                values_[name].push_back(*argument);
        }
    }
}

std::optional<std::string> CommandLine::Value(std::string_view option) const {
    const auto found = values_.find(option);
    return found == values_.end() ? std::nullopt : std::optional(found->second.back());
}

std::vector<std::string> CommandLine::Values(std::string_view option) const {
    const auto found = values_.find(option);
    return found == values_.end() ? std::vector<std::string>() : found->second;
}

}  // namespace mavrin2::script
