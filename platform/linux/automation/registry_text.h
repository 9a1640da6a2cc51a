#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace mavrin2::platform::automation {

// The content of a registry file. Everything is UTF-8. Names of keys and values keep the spelling
// they were first given and are found in any (of the basic letters).
//
//     [CLSID\{…}\InprocServer32]
//     @ = "mavrin2/libexample.so"
//     ThreadingModel = "Apartment"
//
// `@` stands for a key's default value. Within quotes \\ \" \n \r \t stand for themselves.
class RegistryText {
public:
    // Takes every line it understands; the others are as if they were not there.
    static RegistryText Parse(std::string_view text);
    std::string Format() const;

    bool HasKey(std::string_view key) const;
    std::optional<std::string> Value(std::string_view key, std::string_view name) const;

    void AddKey(std::string_view key);
    void RemoveKeyAndBelow(std::string_view key);
    void SetValue(std::string_view key, std::string_view name, std::string_view value);

private:
    struct Entry {
        std::string Name;
        std::string Value;
    };
    struct Key {
        std::string Name;
        std::map<std::string, Entry> Values;  // by folded name
    };

    std::map<std::string, Key> keys_;  // by folded name
};

// Paths that name no key: empty ones, or with an empty step.
bool IsKeyPath(std::string_view key);

}  // namespace mavrin2::platform::automation
