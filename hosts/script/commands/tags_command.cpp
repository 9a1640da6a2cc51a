#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/stored_info.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 tags FILE
       mavrin2 tags FILE NAME=VALUE... OUT

Shows the tags of a sound file, or writes a copy OUT of it with changed ones. OUT may be FILE itself. The
sound is neither decoded nor changed.

  Title  Artist  Album  Composer  OriginalArtist  Genre
  Comments  Copyright  URL  EncodedBy                    any text
  Track  Year                                            a number, 0 to 32767
  Mp3TagInfoVersion                                      put 4 to write ID3v2.4, otherwise 2.3

Titles and artists are NAME=VALUE in one argument: Title="A new title". An empty VALUE removes a tag.
Exit codes: 0 success, 1 failure, 2 usage error.
)";

using Change = std::pair<const Tag*, std::string>;

const Tag* Find(std::string_view name) {
    const auto tags = Tags();
    const auto found = std::ranges::find(tags, name, &Tag::Name);
    return found == tags.end() ? nullptr : &*found;
}

Change ChangeOf(const std::string& operand) {
    const std::size_t sign = operand.find('=');
    if (sign == std::string::npos) throw UsageError("'" + operand + "' is not NAME=VALUE");
    const std::string name = operand.substr(0, sign);
    if (const Tag* tag = Find(name)) return {tag, operand.substr(sign + 1)};
    std::string names;
    for (const Tag& tag : Tags())
        names += (names.empty() ? "" : ", ") + std::string(tag.Name);
    throw UsageError("unknown tag '" + name + "'; try " + names);
}

void Print(const StoredInfo& info) {
    constexpr int kColumn = 19;
    for (const Tag& tag : Tags()) {
        std::string text = info.Text(tag);
        if (text.empty()) continue;
        for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;)
            text.insert(++at, kColumn, ' ');
        std::printf("%-*s%s\n", kColumn, tag.Name, text.c_str());
    }
}

int Run(const CommandLine& line) {
    const auto& operands = line.Operands();
    if (operands.empty()) throw UsageError("tags needs a file");
    if (operands.size() == 1) {
        Print(StoredInfo(operands.front()));
        return kSuccess;
    }
    const std::string& out = operands.back();
    if (operands.size() == 2 || Find(out.substr(0, out.find('='))))
        throw UsageError("tags needs FILE, one or more NAME=VALUE, and OUT");
    std::vector<Change> changes;
    std::transform(operands.begin() + 1, operands.end() - 1, std::back_inserter(changes),
                   &ChangeOf);
    const StoredInfo info(operands.front());
    for (const auto& [tag, text] : changes)
        if (!info.Put(*tag, text))
            throw UsageError("invalid value '" + text + "' for " + tag->Name +
                             "; try a number, 0 to 32767");
    info.WriteTo(out);
    return kSuccess;
}

}  // namespace

const Command kTagsCommand{"tags", kHelp, {}, false, &Run};

}  // namespace mavrin2::script
