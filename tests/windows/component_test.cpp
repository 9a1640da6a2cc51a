// The control as a compiled host meets it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "automation/text.h"
#include "automation/type_library.h"
#include "control/interfaces/events.h"
#include "control/interfaces/library.h"
#include "tests/automation/type_texts.h"
#include "tests/support/com_fakes.h"
#include "tests/windows/component.h"

// After windows.h, which it builds on.
#include <psapi.h>

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using interfaces::ChannelsConstants;
using interfaces::FrequencyConstants;
using interfaces::IMavrin2;
using interfaces::IMavrin2Position;

TEST_F(Component, ExplainsItselfByTheCompiledLibrary) {
    ComPtr<ITypeLib> compiled;
    ASSERT_EQ(::LoadTypeLibEx(ModulePath("KovMavrin2.dll").c_str(), REGKIND_NONE, compiled.Put()),
              S_OK);
    EXPECT_EQ(LibraryTexts(*compiled),
              LibraryTexts(*automation::MakeTypeLibrary(interfaces::ControlLibrary())));
    Bstr name;
    Bstr help;
    ASSERT_EQ(compiled->GetDocumentation(-1, name.Put(), help.Put(), nullptr, nullptr), S_OK);
    EXPECT_EQ(name.Utf8(), "KovMAVRIN2Lib");
    EXPECT_EQ(help.Utf8(), "KovMavrin 2.0 Type Library");

    ComPtr<ITypeInfo> type;
    ASSERT_EQ(CreateControl()->GetTypeInfo(0, 0, type.Put()), S_OK);
    ComPtr<ITypeLib> own;
    UINT place = 0;
    ASSERT_EQ(type->GetContainingTypeLib(own.Put(), &place), S_OK);
    EXPECT_EQ(own.Get(), compiled.Get());
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(own->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->wMajorVerNum, 2);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    own->ReleaseTLibAttr(attributes);
}

TEST_F(Component, RaisesItsEventsAtAConnectionPoint) {
    const auto control = CreateControl();
    std::vector<std::string> heard;
    automation::EventConnection events;
    const auto note = [&](DISPID event, const automation::EventArguments& arguments) {
        heard.push_back(std::to_string(event));
        for (const VARIANT& argument : arguments.InOrder())
            heard.back() += argument.vt == VT_I2 ? " " + std::to_string(argument.iVal) : " ?";
        return S_OK;
    };
    ASSERT_EQ(events.Open(control.Get(), interfaces::DIID_IMavrin2Events, note), S_OK);
    control->New(FrequencyConstants::FQ_8_KHZ, ChannelsConstants::MONO);
    EXPECT_EQ(heard, std::vector<std::string>{"11"});

    const std::filesystem::path saved = std::filesystem::temp_directory_path() / "events.wav";
    heard.clear();
    EXPECT_EQ(control->Save(Bstr(automation::OleStringView(saved.native())).Get(), VARIANT_FALSE,
                            interfaces::FormatTypeConstants::DEFAULT),
              S_OK);
    std::filesystem::remove(saved);
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ(heard.front(), "6 0");
    EXPECT_EQ(heard.back(), "11");
}

TEST_F(Component, IsPartOfAnObjectThatAggregatesIt) {
    for (const CLSID& id : {interfaces::CLSID_Mavrin2, interfaces::CLSID_Mavrin2Position,
                            interfaces::CLSID_Mavrin2FileInfo}) {
        FakeOuter outer;
        void* refused = nullptr;
        EXPECT_EQ(::CoCreateInstance(id, &outer, CLSCTX_INPROC_SERVER, IID_IDispatch, &refused),
                  CLASS_E_NOAGGREGATION);
        ASSERT_EQ(::CoCreateInstance(id, &outer, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                     outer.Inner.PutVoid()),
                  S_OK);
        ComPtr<IDispatch> dispatch;
        ASSERT_EQ(outer.QueryInterface(IID_IDispatch, dispatch.PutVoid()), S_OK);
        ComPtr<IUnknown> identity;
        ASSERT_EQ(dispatch->QueryInterface(IID_IUnknown, identity.PutVoid()), S_OK);
        EXPECT_EQ(identity.Get(), &outer);
        identity.Reset();
        dispatch.Reset();
        outer.Inner.Reset();
        EXPECT_EQ(outer.References, 0U);
    }
}

std::size_t MemoryInUse() {
    PROCESS_MEMORY_COUNTERS counters = {};
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

DWORD OpenHandles() {
    DWORD count = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &count);
    return count;
}

TEST_F(Component, LeavesNothingBehindHoweverOftenItIsMade) {
    const auto make = [](int times) {
        for (int i = 0; i < times; ++i) {
            const auto control = CreateControl();
            control->New(FrequencyConstants::FQ_8_KHZ, ChannelsConstants::MONO);
        }
    };
    make(200);
    const std::size_t memory = MemoryInUse();
    const DWORD handles = OpenHandles();
    make(9800);
    EXPECT_LE(OpenHandles(), handles + 2);
    // A page for each thousand would be seen; one lost object of a hundred bytes each is a million.
    EXPECT_LT(MemoryInUse(), memory + 256 * 1024);
}

TEST_F(Component, CanBeUnloadedWhenNothingOfItIsAlive) {
    auto* const canUnload = EntryPoint<Registering>("DllCanUnloadNow");
    ASSERT_NE(canUnload, nullptr);
    auto control = CreateControl();
    EXPECT_EQ(canUnload(), S_FALSE);
    ComPtr<IMavrin2Position> position;
    ASSERT_EQ(control->get_Position(position.Put()), S_OK);
    control.Reset();
    EXPECT_EQ(canUnload(), S_FALSE) << "a sub-object is held";
    position.Reset();
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(Component, ShowsTheSystemItsFourEntryPointsOnly) {
    const HMODULE module = ::LoadLibraryW(ModulePath("KovMavrin2.dll").c_str());
    ASSERT_NE(module, nullptr);
    for (const char* name :
         {"DllGetClassObject", "DllCanUnloadNow", "DllRegisterServer", "DllUnregisterServer"})
        EXPECT_NE(::GetProcAddress(module, name), nullptr) << name;
    EXPECT_EQ(::GetProcAddress(module, reinterpret_cast<LPCSTR>(std::uintptr_t{5})), nullptr);
}

TEST_F(Component, CarriesItsNamesAndItsPicture) {
    const HMODULE module = ::LoadLibraryW(ModulePath("KovMavrin2.dll").c_str());
    const auto text = [&](UINT number) {
        wchar_t buffer[100] = {};
        ::LoadStringW(module, number, buffer, 100);
        return std::wstring(buffer);
    };
    EXPECT_EQ(text(100), L"KovMavrin2");
    EXPECT_EQ(text(103), L"Mavrin2Channel Class");
    EXPECT_EQ(text(121), L"Mavrin2Scale Class");
    EXPECT_EQ(text(102), L"");
    const HBITMAP picture = ::LoadBitmapW(module, MAKEINTRESOURCEW(101));
    BITMAP shape = {};
    ASSERT_NE(::GetObjectW(picture, sizeof shape, &shape), 0);
    EXPECT_EQ(shape.bmWidth, 16);
    EXPECT_EQ(shape.bmHeight, 15);
    ::DeleteObject(picture);
}

}  // namespace
}  // namespace mavrin2::tests
