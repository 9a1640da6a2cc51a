// What registration leaves in the system's registry, and takes back.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/scratch_registry.h"
#include "tests/support/windows/message_boxes.h"
#include "tests/windows/component.h"

namespace mavrin2::tests {
namespace {

using Entries = std::map<std::wstring, std::wstring>;

// Every key below the classes root that can be ours, and every value in it. All of the root would
// be some ten thousand keys of others.
void Collect(HKEY parent, const std::wstring& path, Entries& entries) {
    HKEY key = nullptr;
    if (::RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    entries[path];
    wchar_t name[300] = {};
    for (DWORD i = 0;; ++i) {
        DWORD length = 300;
        wchar_t value[600] = {};
        DWORD bytes = sizeof value;
        if (::RegEnumValueW(key, i, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(value),
                            &bytes) != ERROR_SUCCESS)
            break;
        entries[path + L" @" + name] = value;
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 300;
        if (::RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        Collect(parent, path + L"\\" + name, entries);
    }
    ::RegCloseKey(key);
}

Entries AllClasses() {
    Entries entries;
    Collect(HKEY_LOCAL_MACHINE, L"Software\\Classes", entries);
    Collect(HKEY_CURRENT_USER, L"Software\\Classes", entries);
    return entries;
}

class RegisteredComponent : public Component {
protected:
    ~RegisteredComponent() override { EXPECT_EQ(register_(), S_OK); }

    Registering* register_ = EntryPoint<Registering>("DllRegisterServer");
    Registering* unregister_ = EntryPoint<Registering>("DllUnregisterServer");
};

TEST_F(RegisteredComponent, LeavesTheRegistryAsItWasBefore) {
    ASSERT_EQ(unregister_(), S_OK);
    const Entries before = AllClasses();
    ASSERT_EQ(register_(), S_OK);
    const Entries during = AllClasses();
    // 3 classes, a library, 4 interfaces.
    EXPECT_GT(during.size(), before.size() + 60);
    ASSERT_EQ(register_(), S_OK) << "again is no failure";
    EXPECT_EQ(AllClasses(), during);
    ASSERT_EQ(unregister_(), S_OK);
    EXPECT_EQ(AllClasses(), before);
    EXPECT_EQ(unregister_(), S_OK) << "nothing to remove is no failure";
}

TEST_F(RegisteredComponent, IsFoundByContainersThatLookForControls) {
    const std::wstring key = L"CLSID\\{F354552F-5413-4B78-A438-C78A84500101}";
    const auto value = [&](const wchar_t* below, const wchar_t* name = nullptr) {
        wchar_t text[600] = {};
        DWORD bytes = sizeof text;
        return ::RegGetValueW(HKEY_CLASSES_ROOT, (key + below).c_str(), name, RRF_RT_REG_SZ,
                              nullptr, text, &bytes) == ERROR_SUCCESS
                   ? std::wstring(text)
                   : L"(none)";
    };
    const std::wstring module = ModulePath("KovMavrin2.dll").native();
    EXPECT_EQ(value(L""), L"KovMavrin2 Class");
    EXPECT_EQ(value(L"\\InprocServer32"), module);
    EXPECT_EQ(value(L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(value(L"\\ToolboxBitmap32"), module + L", 101");
    EXPECT_EQ(value(L"\\MiscStatus\\1"), L"131473");
    EXPECT_EQ(value(L"\\TypeLib"), L"{F354552F-5413-4B78-A438-C78A84500001}");
}

TEST_F(RegisteredComponent, SaysWhenTheRegistryCannotBeWrittenAndWhatWasWrittenCanBeRemoved) {
    const ScratchRegistry scratch;
    const auto count = [](const wchar_t* key) {
        Entries entries;
        Collect(HKEY_CLASSES_ROOT, key, entries);
        return entries.size();
    };
    // Classes can be named, but not described: a key that goes with the session takes none that
    // stay.
    HKEY locked = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CLASSES_ROOT, L"CLSID", 0, nullptr, REG_OPTION_VOLATILE,
                                KEY_ALL_ACCESS, nullptr, &locked, nullptr),
              ERROR_SUCCESS);
    ::RegCloseKey(locked);
    EXPECT_EQ(register_(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    EXPECT_GT(count(L"KovMavrin2.Mavrin2.2"), 0U);
    EXPECT_EQ(unregister_(), S_OK);
    EXPECT_EQ(count(L"KovMavrin2.Mavrin2.2"), 0U);
    EXPECT_EQ(count(L"CLSID"), 1U);
}

TEST_F(RegisteredComponent, TellsTheUserWhichCompanionIsMissing) {
    auto* const away = EntryPoint<Registering>("DllUnregisterServer", "wave_companion.dll");
    auto* const back = EntryPoint<Registering>("DllRegisterServer", "wave_companion.dll");
    ASSERT_EQ(away(), S_OK);
    const MessageBoxes boxes;
    void* control = nullptr;
    EXPECT_EQ(::CoCreateInstance(interfaces::CLSID_Mavrin2, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IUnknown, &control),
              REGDB_E_CLASSNOTREG);
    EXPECT_EQ(control, nullptr);
    ASSERT_EQ(boxes.Seen().size(), 1U);
    EXPECT_EQ(boxes.Seen().front().substr(0, 9), L"KovMavrin");
    EXPECT_NE(boxes.Seen().front().find(L"KovOntiva is not registered."), std::wstring::npos);
    EXPECT_EQ(back(), S_OK);
}

}  // namespace
}  // namespace mavrin2::tests
