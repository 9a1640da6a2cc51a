#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/automation.h"

namespace mavrin2::platform {

// One step of a registration. Keys are written like `CLSID\{…}\InprocServer32`, below the classes
// root, with backslashes on every system.
struct RegistryChange {
    enum class Kind {
        ReplaceKey,  // remove the key with everything below it, then make it, empty
        RemoveKey,   // remove the key with everything below it; a missing key is a success
        SetValue     // make the key where it is missing and set one of its values
    };
    Kind What;
    std::u16string Key;
    std::u16string Name;   // the value's name, empty for the key's default value
    std::u16string Value;  // only for SetValue
};

// Where hosts find components. On Linux a readable text file, on Windows the system's registry.
// Any thread. Others see all changes of one call or none on Linux; on Windows one after the other.
class ComponentRegistry {
public:
    virtual ~ComponentRegistry() = default;

    // Makes the changes in their order and stops at the first that fails; returns that failure.
    virtual HRESULT Apply(std::span<const RegistryChange> changes) = 0;

    // A value of a key (name empty: the default value), or nothing when either is missing.
    virtual std::optional<std::u16string> Value(std::u16string_view key,
                                                std::u16string_view name) const = 0;
};

// The registry of this process: the one that hosts see through the system. Owned by the caller.
std::unique_ptr<ComponentRegistry> SystemComponentRegistry();

}  // namespace mavrin2::platform
