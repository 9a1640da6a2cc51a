#include "tests/support/scratch_registry.h"

#include <stdexcept>
#include <string>

#include "platform/automation.h"

namespace mavrin2::tests {

// The system lets a process see another key in the place of the classes root.
struct ScratchRegistry::Place {
    Place() { Use(Name, REG_OPTION_NON_VOLATILE); }
    ~Place() {
        ::RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Name.c_str());
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Locked().c_str());
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    static void Use(const std::wstring& name, DWORD options) {
        HKEY key = nullptr;
        if (::RegCreateKeyExW(HKEY_CURRENT_USER, name.c_str(), 0, nullptr, options, KEY_ALL_ACCESS,
                              nullptr, &key, nullptr) != ERROR_SUCCESS ||
            ::RegOverridePredefKey(HKEY_CLASSES_ROOT, key) != ERROR_SUCCESS) {
            throw std::runtime_error("no registry for the test");
        }
        ::RegCloseKey(key);
    }
    std::wstring Locked() const { return Name + L"-locked"; }

    std::wstring Name = L"Software\\MavrinTest\\" + std::to_wstring(::GetCurrentProcessId());
};

ScratchRegistry::ScratchRegistry() : place_(std::make_unique<Place>()) {}
ScratchRegistry::~ScratchRegistry() = default;

void ScratchRegistry::ForbidWriting() {
    // A key that goes with the session takes none that stay, whoever asks; rights would not keep an
    // administrator out, nor anybody in Wine.
    Place::Use(place_->Locked(), REG_OPTION_VOLATILE);
}

}  // namespace mavrin2::tests
