// The component registry of Linux: which files it is made of and what their values mean.

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <new>
#include <system_error>
#include <vector>

#include "platform/component_registry.h"
#include "platform/linux/automation/registry_file.h"
#include "platform/linux/automation/text_encoding.h"

namespace mavrin2::platform {
namespace {

using automation::FromUtf8;
using automation::RegistryFile;
using automation::RegistryText;
using automation::ToUtf8;

constexpr const char* SystemFile = "/etc/mavrin2/components";

std::filesystem::path FromEnvironment(const char* variable) {
    const char* const value = ::secure_getenv(variable);
    return value != nullptr ? value : "";
}

std::filesystem::path UserFile() {
    std::filesystem::path folder = FromEnvironment("XDG_CONFIG_HOME");
    if (!folder.is_absolute()) {
        std::filesystem::path home = FromEnvironment("HOME");
        if (!home.is_absolute()) {
            const passwd* const user = ::getpwuid(::geteuid());
            home = user != nullptr ? user->pw_dir : "";
        }
        folder = home / ".config";
    }
    return folder / "mavrin2" / "components";
}

// In the order in which they are asked; the first is the one that is written.
std::vector<RegistryFile> Files() {
    std::filesystem::path only = FromEnvironment("MAVRIN2_REGISTRY");
    std::vector<RegistryFile> files;
    if (!only.empty()) {
        std::error_code error;
        std::filesystem::path path = std::filesystem::absolute(only, error);
        files.emplace_back(error ? only : path);
    } else {
        files.emplace_back(UserFile());
        files.emplace_back(SystemFile);
    }
    return files;
}

// The default value below a class that names its module. Kept relative to the registry's folder
// where it lies below that, so that both can be moved together.
bool IsModulePath(std::string_view key, std::string_view name) {
    constexpr std::string_view last = "\\inprocserver32";
    if (!name.empty() || key.size() < last.size()) return false;
    const std::string_view end = key.substr(key.size() - last.size());
    for (std::size_t i = 0; i < last.size(); ++i) {
        const char c = end[i] >= 'A' && end[i] <= 'Z' ? static_cast<char>(end[i] | 0x20) : end[i];
        if (c != last[i]) return false;
    }
    return true;
}

std::string Stored(const std::string& modulePath, const std::filesystem::path& registry) {
    const std::filesystem::path path(modulePath);
    if (!path.is_absolute()) return modulePath;
    std::error_code error;
    // Either may have been reached through a link.
    const auto folder = std::filesystem::weakly_canonical(registry.parent_path(), error);
    if (error) return modulePath;
    const auto module = std::filesystem::weakly_canonical(path.parent_path(), error);
    if (error) return modulePath;
    const auto relative = module.lexically_relative(folder) / path.filename();
    if (relative.empty() || *relative.begin() == "..") return modulePath;
    return relative.lexically_normal().string();
}

std::string Resolved(const std::string& modulePath, const std::filesystem::path& registry) {
    if (modulePath.empty()) return modulePath;
    const std::filesystem::path path(modulePath);
    return path.is_absolute() ? modulePath
                              : (registry.parent_path() / path).lexically_normal().string();
}

HRESULT Make(const RegistryChange& change, RegistryText& text,
             const std::filesystem::path& registry) {
    const std::string key = ToUtf8(change.Key);
    if (!automation::IsKeyPath(key)) return E_INVALIDARG;
    switch (change.What) {
        case RegistryChange::Kind::ReplaceKey:
            text.RemoveKeyAndBelow(key);
            text.AddKey(key);
            return S_OK;
        case RegistryChange::Kind::RemoveKey:
            text.RemoveKeyAndBelow(key);
            return S_OK;
        case RegistryChange::Kind::SetValue: {
            const std::string name = ToUtf8(change.Name);
            const std::string value = ToUtf8(change.Value);
            text.SetValue(key, name, IsModulePath(key, name) ? Stored(value, registry) : value);
            return S_OK;
        }
    }
    return E_INVALIDARG;
}

class FileRegistry final : public ComponentRegistry {
public:
    HRESULT Apply(std::span<const RegistryChange> changes) override {
        try {
            const RegistryFile file = Files().front();
            return file.Update([&](RegistryText& text) {
                for (const RegistryChange& change : changes) {
                    const HRESULT status = Make(change, text, file.Path());
                    if (FAILED(status)) return status;
                }
                return S_OK;
            });
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (const std::exception&) {
            return E_UNEXPECTED;
        }
    }

    std::optional<std::u16string> Value(std::u16string_view key,
                                        std::u16string_view name) const override {
        const std::string keyText = ToUtf8(key);
        const std::string nameText = ToUtf8(name);
        for (const RegistryFile& file : Files()) {
            const auto text = file.Read();
            // A user's key hides the system's of that name, whatever values either has.
            if (!text || !text->HasKey(keyText)) continue;
            auto value = text->Value(keyText, nameText);
            if (!value) return std::nullopt;
            if (IsModulePath(keyText, nameText)) value = Resolved(*value, file.Path());
            return FromUtf8(*value);
        }
        return std::nullopt;
    }
};

}  // namespace

MAVRIN2_AUTOMATION_API std::unique_ptr<ComponentRegistry> SystemComponentRegistry() {
    return std::make_unique<FileRegistry>();
}

}  // namespace mavrin2::platform
