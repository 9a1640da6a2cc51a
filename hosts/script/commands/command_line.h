#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mavrin2::script {

// What follows a command's name.
class CommandLine {
public:
    // `--help` is always among the options. With `leading`, options stand before the first operand
    // only, and whatever follows that one is an operand. Every option takes a value, behind a blank
    // or `=`. Throws UsageError.
    CommandLine(std::span<const std::string> arguments, std::span<const std::string_view> options,
                bool leading);

    bool AsksForHelp() const { return help_; }
    const std::vector<std::string>& Operands() const { return operands_; }
    // The value given last.
    std::optional<std::string> Value(std::string_view option) const;

private:
    bool help_ = false;
    std::vector<std::string> operands_;
    std::map<std::string, std::string, std::less<>> values_;
};

}  // namespace mavrin2::script
