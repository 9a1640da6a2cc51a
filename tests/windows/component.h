#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "automation/com_ptr.h"
#include "control/interfaces/mavrin2.h"
#include "platform/module_path.h"

namespace mavrin2::tests {

// The modules are beside this program.
inline std::filesystem::path ModulePath(const char* name) {
    static const int here = 0;
    return platform::PathOfModule(&here).parent_path() / name;
}

// One of the four entry points of the control's module.
template <class Function>
Function* EntryPoint(const char* name, const char* module = "KovMavrin2.dll") {
    const HMODULE loaded = ::LoadLibraryW(ModulePath(module).c_str());
    return loaded ? reinterpret_cast<Function*>(
                        reinterpret_cast<void*>(::GetProcAddress(loaded, name)))
                  : nullptr;
}

using Registering = HRESULT STDMETHODCALLTYPE();

// A thread's apartment, with the control registered in it.
class Component : public testing::Test {
protected:
    Component() { ::CoInitialize(nullptr); }
    ~Component() override { ::CoUninitialize(); }

    template <class Interface>
    static automation::ComPtr<Interface> Create(const wchar_t* progId) {
        CLSID id{};
        automation::ComPtr<Interface> object;
        EXPECT_EQ(::CLSIDFromProgID(progId, &id), S_OK);
        EXPECT_EQ(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER,
                                     automation::IidOf<Interface>(), object.PutVoid()),
                  S_OK);
        return object;
    }
    static automation::ComPtr<interfaces::IMavrin2> CreateControl() {
        return Create<interfaces::IMavrin2>(L"KovMavrin2.Mavrin2");
    }
};

}  // namespace mavrin2::tests
