// The component registry of Linux: which files it is made of and what their values mean.

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <system_error>
#include <vector>

#include "platform/component_registry.h"
#include "platform/linux/automation/registry_file.h"
#include "platform/module_path.h"
#include "platform/ole_text.h"

namespace mavrin2::platform {
namespace {

using automation::RegistryFile;
using automation::RegistryText;

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

// The registry of the installation that this runtime belongs to, where any host finds its
// components; empty where the runtime's folder is unknown.
std::filesystem::path InstalledFile() {
    const auto runtime = PathOfModule(reinterpret_cast<const void*>(&InstalledFile));
    return runtime.empty() ? runtime : runtime.parent_path() / "mavrin2-components";
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
        if (const auto installed = InstalledFile(); !installed.empty())
            files.emplace_back(installed);
    }
    return files;
}

bool EndsInStep(std::string_view key, std::string_view lowerStep) {
    if (key.size() < lowerStep.size()) return false;
    return std::ranges::equal(
        key.substr(key.size() - lowerStep.size()), lowerStep, [](char a, char b) {
            return (a >= 'A' && a <= 'Z' ? static_cast<char>(a | 0x20) : a) == b;
        });
}

// How much of a value is the path of a module: all of a class's module, and what precedes the comma
// of its toolbox picture ("path, number"); nothing of other values.
std::size_t ModulePathLength(std::string_view key, std::string_view name, std::string_view value) {
    if (!name.empty()) return 0;
    if (EndsInStep(key, "\\inprocserver32")) return value.size();
    const std::size_t comma = value.rfind(',');
    return EndsInStep(key, "\\toolboxbitmap32") && comma != std::string_view::npos ? comma : 0;
}

// Module paths are kept relative to the registry's folder where they are below it, so that both can
// be moved together.
std::string Stored(const std::filesystem::path& module, const std::filesystem::path& registry) {
    if (!module.is_absolute()) return module.string();
    std::error_code error;
    // Either may have been reached through a link.
    const auto folder = std::filesystem::weakly_canonical(registry.parent_path(), error);
    if (error) return module.string();
    const auto parent = std::filesystem::weakly_canonical(module.parent_path(), error);
    if (error) return module.string();
    const auto relative = parent.lexically_relative(folder) / module.filename();
    if (relative.empty() || *relative.begin() == "..") return module.string();
    return relative.lexically_normal().string();
}

std::string Resolved(const std::filesystem::path& module, const std::filesystem::path& registry) {
    return module.is_absolute() ? module.string()
                                : (registry.parent_path() / module).lexically_normal().string();
}

// The value with the module path in it, if there is one, as `change` makes it.
template <typename Change>
std::string WithModulePath(std::string_view key, std::string_view name, std::string value,
                           const Change& change) {
    const std::size_t length = ModulePathLength(key, name, value);
    if (length != 0) value.replace(0, length, change(value.substr(0, length)));
    return value;
}

HRESULT Make(const RegistryChange& change, RegistryText& text,
             const std::filesystem::path& registry) {
    const std::string key = Utf8Of(change.Key);
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
            const std::string name = Utf8Of(change.Name);
            text.SetValue(key, name,
                          WithModulePath(key, name, Utf8Of(change.Value),
                                         [&](const auto& path) { return Stored(path, registry); }));
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
        const std::string keyText = Utf8Of(key);
        const std::string nameText = Utf8Of(name);
        for (const RegistryFile& file : Files()) {
            const auto text = file.Read();
            // A user's key hides the system's of that name, whatever values either has.
            if (!text || !text->HasKey(keyText)) continue;
            const auto value = text->Value(keyText, nameText);
            if (!value) return std::nullopt;
            return OleTextOf(WithModulePath(keyText, nameText, *value, [&](const auto& path) {
                return Resolved(path, file.Path());
            }));
        }
        return std::nullopt;
    }
};

}  // namespace

MAVRIN2_AUTOMATION_API std::unique_ptr<ComponentRegistry> SystemComponentRegistry() {
    return std::make_unique<FileRegistry>();
}

}  // namespace mavrin2::platform
