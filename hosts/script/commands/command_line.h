#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mavrin2::script {

// The operand for standard input and, where a command writes a file, standard output.
inline constexpr std::string_view kStandardStream = "-";

// The arguments after a command's name.
class CommandLine {
public:
    // `--help` and `--version` are always accepted. An option takes a value, as the next argument
    // or after `=`, a flag does not. With `leading`, everything after the first operand is an
    // operand too. Throws UsageError.
    CommandLine(std::span<const std::string> arguments, std::span<const std::string_view> options,
                bool leading, std::span<const std::string_view> flags = {});

    bool AsksForHelp() const { return help_; }
    bool AsksForVersion() const { return version_; }
    const std::vector<std::string>& Operands() const { return operands_; }
    // The last value given.
    std::optional<std::string> Value(std::string_view option) const;
    // All of them, in their order.
    std::vector<std::string> Values(std::string_view option) const;
    bool Has(std::string_view flag) const { return values_.contains(flag); }

private:
    bool help_ = false;
    bool version_ = false;
    std::vector<std::string> operands_;
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

}  // namespace mavrin2::script
