#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/component_registry.h"

namespace mavrin2::tests {

inline HRESULT Apply(std::initializer_list<platform::RegistryChange> changes) {
    const std::vector<platform::RegistryChange> list(changes);
    return platform::SystemComponentRegistry()->Apply(list);
}

inline HRESULT Set(std::u16string key, std::u16string value, std::u16string name = {}) {
    return Apply({{platform::RegistryChange::Kind::SetValue, std::move(key), std::move(name),
                   std::move(value)}});
}

inline std::u16string Get(std::u16string_view key, std::u16string_view name = {}) {
    return platform::SystemComponentRegistry()->Value(key, name).value_or(u"(none)");
}

}  // namespace mavrin2::tests
