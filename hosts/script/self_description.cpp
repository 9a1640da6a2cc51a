#include "hosts/script/self_description.h"

namespace mavrin2::script {
namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view kCommon[] = {"--help", "--version"};
constexpr Words kEverywhere = kCommon;

std::string Names(std::span<const Command* const> commands) {
    std::string names = "help completion";
    for (const Command* command : commands) {
        names += ' ';
        names += command->Name;
    }
    return names;
}

std::string OptionsOf(const Command& command) {
    std::string options;
    for (const auto& some : {command.Options, command.Flags, kEverywhere})
        for (const std::string_view option : some) {
            if (!options.empty()) options += ' ';
            options += option;
        }
    return options;
}

// Words that are no options complete as file names.
std::string ForBash(std::span<const Command* const> commands) {
    std::string text =
        "_mavrin2() {\n"
        "    local word=${COMP_WORDS[COMP_CWORD]} words=\n"
        "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
        "        words=\"" +
        Names(commands) +
        "\"\n"
        "    elif [[ $word == -* ]]; then\n"
        "        case ${COMP_WORDS[1]} in\n";
    for (const Command* command : commands)
        text += std::string("            ") + command->Name + ") words=\"" + OptionsOf(*command) +
                "\" ;;\n";
    return text +
           "        esac\n"
           "    fi\n"
           "    COMPREPLY=($(compgen -W \"$words\" -- \"$word\"))\n"
           "}\n"
           "complete -o default -F _mavrin2 mavrin2\n";
}

std::string ForZsh(std::span<const Command* const> commands) {
    std::string text =
        "#compdef mavrin2\n"
        "if (( CURRENT == 2 )); then\n"
        "    compadd -- " +
        Names(commands) +
        "\n"
        "elif [[ $PREFIX == -* ]]; then\n"
        "    case $words[2] in\n";
    for (const Command* command : commands)
        text += std::string("        ") + command->Name + ") compadd -- " + OptionsOf(*command) +
                " ;;\n";
    return text +
           "    esac\n"
           "else\n"
           "    _files\n"
           "fi\n";
}

std::string ForFish(std::span<const Command* const> commands) {
    std::string text =
        "complete -c mavrin2 -n __fish_use_subcommand -f -a '" + Names(commands) + "'\n";
    for (const Command* command : commands) {
        const auto add = [&](std::string_view option, std::string_view value) {
            const bool isLong = option.starts_with("--");
            text += "complete -c mavrin2 -n '__fish_seen_subcommand_from ";
            text += command->Name;
            text += isLong ? "' -l " : "' -s ";
            text += option.substr(isLong ? 2 : 1);
            text += value;
            text += '\n';
        };
        for (const std::string_view option : command->Options)
            add(option, " -r");
        for (const auto& flags : {command->Flags, kEverywhere})
            for (const std::string_view flag : flags)
                add(flag, "");
    }
    return text;
}

// Lines as they are, whatever they contain.
std::string Verbatim(std::string_view text) {
    std::string page = ".nf\n";
    bool begins = true;
    for (const char c : text) {
        if (begins && (c == '.' || c == '\'')) page += "\\&";
        if (c == '\\')
            page += "\\e";
        else if (c == '-')
            page += "\\-";
        else
            page += c;
        begins = c == '\n';
    }
    return page + ".fi\n";
}

}  // namespace

std::optional<std::string> CompletionFor(std::string_view shell,
                                         std::span<const Command* const> commands) {
    if (shell == "bash") return ForBash(commands);
    if (shell == "zsh") return ForZsh(commands);
    if (shell == "fish") return ForFish(commands);
    return std::nullopt;
}

std::string ManualPage(std::string_view version, std::string_view overview,
                       std::span<const Command* const> commands) {
    std::string page = R"(.TH MAVRIN2 1 "" ")" + std::string(version) +
                       "\"\n.SH NAME\nmavrin2 \\- edit and convert sound files\n"
                       ".SH DESCRIPTION\n" +
                       Verbatim(overview);
    for (const Command* command : commands)
        page += std::string(".SH MAVRIN2 ") + command->Name + "\n" + Verbatim(command->Help);
    return page;
}

}  // namespace mavrin2::script
