#include "companions/ontiva/info/fields.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mavrin2::ontiva {
namespace {

struct Alias {
    std::string_view Other;
    std::string_view Usual;
};

constexpr Alias kAliases[] = {{"DESCRIPTION", "COMMENT"},  {"YEAR", "DATE"},
                              {"TRACK", "TRACKNUMBER"},    {"ENCODED-BY", "ENCODEDBY"},
                              {"ENCODED BY", "ENCODEDBY"}, {"ORIGINAL ARTIST", "ORIGINALARTIST"}};

constexpr std::string_view kOfOneFile[] = {
    "REPLAYGAIN_", "R128_", "MP3GAIN_", "ITUN",       "COMMENT:ITUN", "LENGTH",     "TLEN",
    "ENCODER",     "TOOL",  "ENCODING", "WAVEFORMAT", "TRAKTOR4",     "ACCURATERIP"};

}  // namespace

const Fields::Values& Fields::All(std::string_view name) const {
    static const Values none;
    const auto found = map_.find(name);
    return found == map_.end() ? none : found->second;
}

const std::string& Fields::First(std::string_view name) const {
    static const std::string none;
    const Values& all = All(name);
    return all.empty() ? none : all.front();
}

std::string Fields::Joined(std::string_view name) const {
    std::string text;
    for (const std::string& value : All(name))
        text += (text.empty() ? "" : "; ") + value;
    return text;
}

void Fields::Set(std::string_view name, std::string value) {
    if (value.empty()) return Erase(name);
    SetAll(name, {std::move(value)});
}

void Fields::SetAll(std::string_view name, Values values) {
    if (values.empty()) return Erase(name);
    map_.insert_or_assign(std::string(name), std::move(values));
}

void Fields::Add(std::string_view name, std::string value) {
    map_[std::string(name)].push_back(std::move(value));
}

void Fields::Erase(std::string_view name) {
    const auto found = map_.find(name);
    if (found != map_.end()) map_.erase(found);
}

void AdoptUsualNames(Fields& fields) {
    for (const Alias& alias : kAliases) {
        if (fields.All(alias.Other).empty()) continue;
        if (fields.First(alias.Usual).empty()) fields.SetAll(alias.Usual, fields.All(alias.Other));
        // One that says something else is a field in its own right.
        if (fields.All(alias.Usual) == fields.All(alias.Other)) fields.Erase(alias.Other);
    }
}

bool Travels(std::string_view name) {
    return std::none_of(std::begin(kOfOneFile), std::end(kOfOneFile),
                        [&](std::string_view start) { return name.starts_with(start); });
}

Fields Merge(const Fields& present, const Fields& edited) {
    Fields merged = present;
    AdoptUsualNames(merged);
    for (const std::string_view name : kPublicNames)
        merged.SetAll(name, edited.All(name));
    for (const auto& [name, values] : edited.Entries())
        if (Travels(name)) merged.SetAll(name, values);
    return merged;
}

}  // namespace mavrin2::ontiva
