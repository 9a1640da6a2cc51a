#include "tests/support/scratch_registry.h"

#include <stdexcept>
#include <string>

#include "platform/automation.h"

namespace mavrin2::tests {

// The system lets a process see another key in the place of the classes root.
struct ScratchRegistry::Place {
    Place() { Use(KEY_ALL_ACCESS); }
    ~Place() {
        ::RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        ::RegDeleteTreeW(HKEY_CURRENT_USER, Name.c_str());
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    void Use(REGSAM rights) const {
        HKEY key = nullptr;
        if (::RegCreateKeyExW(HKEY_CURRENT_USER, Name.c_str(), 0, nullptr, 0, rights, nullptr, &key,
                              nullptr) != ERROR_SUCCESS ||
            ::RegOverridePredefKey(HKEY_CLASSES_ROOT, key) != ERROR_SUCCESS) {
            throw std::runtime_error("no registry for the test");
        }
        ::RegCloseKey(key);
    }

    std::wstring Name = L"Software\\MavrinTest\\" + std::to_wstring(::GetCurrentProcessId());
};

ScratchRegistry::ScratchRegistry() : place_(std::make_unique<Place>()) {}
ScratchRegistry::~ScratchRegistry() = default;

void ScratchRegistry::ForbidWriting() {
    place_->Use(KEY_READ);
}

}  // namespace mavrin2::tests
