#include "platform/linux/automation/registry_text.h"

#include <algorithm>

namespace mavrin2::platform::automation {
namespace {

constexpr std::string_view Heading =
    "# Components that hosts find by class or program identifier. Made by the components'\n"
    "# registration; lines that are not understood are dropped when it is written again.\n";

std::string Folded(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return folded;
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        switch (c) {
            case '\\':
                quoted += "\\\\";
                break;
            case '"':
                quoted += "\\\"";
                break;
            case '\n':
                quoted += "\\n";
                break;
            case '\r':
                quoted += "\\r";
                break;
            case '\t':
                quoted += "\\t";
                break;
            default:
                quoted += c;
        }
    }
    return quoted += '"';
}

// Takes a quoted text off the front; nothing when it is not one, whole.
std::optional<std::string> TakeQuoted(std::string_view& text) {
    if (!text.starts_with('"')) return std::nullopt;
    std::string result;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') {
            text.remove_prefix(i + 1);
            return result;
        }
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        if (++i == text.size()) return std::nullopt;
        switch (text[i]) {
            case 'n':
                result += '\n';
                break;
            case 'r':
                result += '\r';
                break;
            case 't':
                result += '\t';
                break;
            default:
                result += text[i];
        }
    }
    return std::nullopt;
}

bool IsPlainName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_' || c == '.' || c == '-';
    });
}

std::string FormatName(std::string_view name) {
    if (name.empty()) return "@";
    return IsPlainName(name) ? std::string(name) : Quoted(name);
}

struct Assignment {
    std::string Name;
    std::string Value;
};

std::optional<Assignment> ParseAssignment(std::string_view line) {
    Assignment assignment;
    if (line.starts_with('@')) {
        line.remove_prefix(1);
    } else if (line.starts_with('"')) {
        auto name = TakeQuoted(line);
        if (!name) return std::nullopt;
        assignment.Name = std::move(*name);
    } else {
        const auto end = line.find_first_of("= \t");
        if (end == std::string_view::npos || !IsPlainName(line.substr(0, end))) return std::nullopt;
        assignment.Name = line.substr(0, end);
        line.remove_prefix(end);
    }
    line = Trimmed(line);
    if (!line.starts_with('=')) return std::nullopt;
    line = Trimmed(line.substr(1));
    auto value = TakeQuoted(line);
    if (!value || !Trimmed(line).empty()) return std::nullopt;
    assignment.Value = std::move(*value);
    return assignment;
}

}  // namespace

bool IsKeyPath(std::string_view key) {
    return !key.empty() && key.front() != '\\' && key.back() != '\\' &&
           key.find("\\\\") == std::string_view::npos &&
           key.find_first_of(std::string_view("\n\r\0", 3)) == std::string_view::npos;
}

RegistryText RegistryText::Parse(std::string_view text) {
    RegistryText parsed;
    std::string key;  // empty: below a heading that was not understood
    while (!text.empty()) {
        const auto end = text.find('\n');
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.starts_with('[')) {
            key.clear();
            const auto name = line.substr(1, line.size() - 2);
            if (line.ends_with(']') && IsKeyPath(name)) {
                key = name;
                parsed.AddKey(key);
            }
        } else if (!key.empty() && !line.starts_with('#')) {
            if (const auto assignment = ParseAssignment(line)) {
                parsed.SetValue(key, assignment->Name, assignment->Value);
            }
        }
    }
    return parsed;
}

std::string RegistryText::Format() const {
    std::string text(Heading);
    for (const auto& [foldedKey, key] : keys_) {
        text += "\n[" + key.Name + "]\n";
        for (const auto& [foldedName, entry] : key.Values) {
            text += FormatName(entry.Name) + " = " + Quoted(entry.Value) + "\n";
        }
    }
    return text;
}

bool RegistryText::HasKey(std::string_view key) const {
    return keys_.contains(Folded(key));
}

std::optional<std::string> RegistryText::Value(std::string_view key, std::string_view name) const {
    const auto foundKey = keys_.find(Folded(key));
    if (foundKey == keys_.end()) return std::nullopt;
    const auto found = foundKey->second.Values.find(Folded(name));
    if (found == foundKey->second.Values.end()) return std::nullopt;
    return found->second.Value;
}

void RegistryText::AddKey(std::string_view key) {
    keys_.try_emplace(Folded(key), Key{std::string(key), {}});
}

void RegistryText::RemoveKeyAndBelow(std::string_view key) {
    const std::string folded = Folded(key);
    std::erase_if(keys_, [&folded](const auto& item) {
        const std::string& name = item.first;
        return name.starts_with(folded) &&
               (name.size() == folded.size() || name[folded.size()] == '\\');
    });
}

void RegistryText::SetValue(std::string_view key, std::string_view name, std::string_view value) {
    AddKey(key);
    auto& values = keys_[Folded(key)].Values;
    auto [entry, isNew] = values.try_emplace(Folded(name));
    if (isNew) entry->second.Name = name;
    entry->second.Value = value;
}

}  // namespace mavrin2::platform::automation
