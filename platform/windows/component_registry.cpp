#include "platform/component_registry.h"

#include <algorithm>

#include "platform/windows/wide.h"

namespace mavrin2::platform {
namespace {

HRESULT ResultOf(LSTATUS status) {
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

// The system would take an empty name for the root itself, with everything that is registered, and
// quietly leaves out empty steps.
bool IsKeyName(std::u16string_view key) {
    return !key.empty() && key.front() != u'\\' && key.back() != u'\\' &&
           key.find(u"\\\\") == key.npos &&
           std::ranges::none_of(key, [](char16_t c) { return c < u' '; });
}

LSTATUS RemoveKey(const std::wstring& key) {
    const LSTATUS status = ::RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

LSTATUS MakeKey(const std::wstring& key, HKEY* made) {
    return ::RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                             made, nullptr);
}

LSTATUS SetValue(const std::wstring& key, const std::wstring& name, const std::wstring& value) {
    HKEY open = nullptr;
    if (const LSTATUS status = MakeKey(key, &open); status != ERROR_SUCCESS) return status;
    const LSTATUS status = ::RegSetValueExW(
        open, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    ::RegCloseKey(open);
    return status;
}

class WindowsRegistry final : public ComponentRegistry {
public:
    HRESULT Apply(std::span<const RegistryChange> changes) override {
        for (const RegistryChange& change : changes) {
            if (!IsKeyName(change.Key)) return E_INVALIDARG;
            if (const LSTATUS status = ApplyOne(change); status != ERROR_SUCCESS)
                return ResultOf(status);
        }
        return S_OK;
    }

    std::optional<std::u16string> Value(std::u16string_view key,
                                        std::u16string_view name) const override {
        if (!IsKeyName(key)) return std::nullopt;
        const std::wstring wideKey = WideOf(key);
        const std::wstring wideName = WideOf(name);
        DWORD bytes = 0;
        const auto read = [&](wchar_t* target) {
            return ::RegGetValueW(HKEY_CLASSES_ROOT, wideKey.c_str(), wideName.c_str(),
                                  RRF_RT_REG_SZ, nullptr, target, &bytes);
        };
        if (read(nullptr) != ERROR_SUCCESS) return std::nullopt;
        std::wstring value(bytes / sizeof(wchar_t), L'\0');
        // Somebody may have changed it meanwhile: then it is as good as missing.
        if (read(value.data()) != ERROR_SUCCESS) return std::nullopt;
        value.resize(std::min(value.size(), value.find(L'\0')));
        return Utf16Of(value);
    }

private:
    static LSTATUS ApplyOne(const RegistryChange& change) {
        const std::wstring key = WideOf(change.Key);
        if (change.What == RegistryChange::Kind::SetValue)
            return SetValue(key, WideOf(change.Name), WideOf(change.Value));
        if (const LSTATUS status = RemoveKey(key); status != ERROR_SUCCESS) return status;
        if (change.What == RegistryChange::Kind::RemoveKey) return ERROR_SUCCESS;
        HKEY made = nullptr;
        const LSTATUS status = MakeKey(key, &made);
        if (status == ERROR_SUCCESS) ::RegCloseKey(made);
        return status;
    }
};

}  // namespace

std::unique_ptr<ComponentRegistry> SystemComponentRegistry() {
    return std::make_unique<WindowsRegistry>();
}

}  // namespace mavrin2::platform
