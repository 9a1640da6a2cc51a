// The control as a compiled host meets it.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <vector>

#include "automation/text.h"
#include "automation/type_library.h"
#include "automation/variant.h"
#include "control/interfaces/events.h"
#include "control/interfaces/library.h"
#include "tests/automation/late_call.h"
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

TEST_F(Component, ServesAHostThatIsCompiledAgainstIt) {
    const auto control = CreateControl();
    ASSERT_TRUE(control);
    EXPECT_EQ(control->New(FrequencyConstants::FQ_22_KHZ, ChannelsConstants::MONO), S_OK);
    ComPtr<interfaces::IMavrin2FileInfo> info;
    ASSERT_EQ(control->get_FileInfo(info.Put()), S_OK);
    Bstr text;
    EXPECT_EQ(info->get_FormatString(text.Put()), S_OK);
    EXPECT_EQ(text.Utf8(), "PCM 22050 Hz; 16 bit; mono");
    ComPtr<interfaces::IMavrin2FileInfo> again;
    ASSERT_EQ(control->get_FileInfo(again.Put()), S_OK);
    EXPECT_EQ(info.Get(), again.Get());
    EXPECT_EQ(control->get_Status(nullptr), E_POINTER);
    EXPECT_EQ(control->get_FileInfo(nullptr), E_POINTER);
}

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

// The three ways in which a property of the control can be read and written give the same.
TEST_F(Component, AnswersAlikeThroughItsOwnDispatchTheSystemsAndTheVirtualTable) {
    const auto control = CreateControl();
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(control->GetTypeInfo(0, 0, type.Put()), S_OK);
    ComPtr<IUnknown> made;
    ASSERT_EQ(::CreateStdDispatch(nullptr, control.Get(), type.Get(), made.Put()), S_OK);
    const auto system = made.As<IDispatch>();
    IDispatch* const ways[] = {control.Get(), system.Get()};

    const struct {
        const char* Member;
        WORD Flags;
        std::vector<Value> Arguments;
        HRESULT Status;
    } calls[] = {
        {"FileBufferSize", DISPATCH_PROPERTYPUT, {LONG{50}}, S_OK},
        {"FileBufferSize", DISPATCH_PROPERTYPUT, {"3000.4"}, S_OK},
        {"FileBufferSize", DISPATCH_PROPERTYPUT, {"many"}, DISP_E_TYPEMISMATCH},
        {"FileBufferSize", DISPATCH_PROPERTYGET, {LONG{1}}, DISP_E_NOTACOLLECTION},
        {"Status", DISPATCH_PROPERTYPUT, {LONG{1}}, DISP_E_MEMBERNOTFOUND},
        {"Nothing", DISPATCH_METHOD, {}, DISP_E_UNKNOWNNAME},
        {"New", DISPATCH_METHOD, {LONG{8000}}, DISP_E_BADPARAMCOUNT},
        {"New", DISPATCH_METHOD, {SHORT{8000}, "1"}, S_OK},
        {"Open", DISPATCH_METHOD, {"Z:\\no such file.wav"}, DISP_E_EXCEPTION},
    };
    for (const auto& one : calls) {
        SCOPED_TRACE(one.Member);
        for (IDispatch* way : ways) {
            const bool put = one.Flags == DISPATCH_PROPERTYPUT;
            const LateCall call(
                *way, one.Member, one.Flags, one.Arguments,
                put ? std::vector<DISPID>{DISPID_PROPERTYPUT} : std::vector<DISPID>{});
            EXPECT_EQ(call.Status, one.Status);
            if (one.Status == DISP_E_EXCEPTION) {
                EXPECT_EQ(call.Exception.scode, static_cast<HRESULT>(0x80040309));
                EXPECT_EQ(automation::ToUtf8(Bstr::View(call.Exception.bstrDescription)),
                          "File Access error.");
            }
        }
    }
    LONG size = 0;
    EXPECT_EQ(control->get_FileBufferSize(&size), S_OK);
    for (IDispatch* way : ways)
        EXPECT_EQ(
            FromVariant(LateCall(*way, "FileBufferSize", DISPATCH_PROPERTYGET, std::vector<Value>{})
                            .Result),
            Value(size));
    EXPECT_EQ(size, 3000);
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

TEST_F(Component, OffersPositionsAloneByTheirIdentifier) {
    const auto position = Create<IMavrin2Position>(L"KovMavrin2.Mavrin2Position.1");
    ASSERT_TRUE(position);
    LONG value = 7;
    EXPECT_EQ(position->get_TotalSamples(&value), S_OK);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(position->put_StartSelect(5), S_OK);
    EXPECT_EQ(position->get_StartSelect(&value), S_OK);
    EXPECT_EQ(value, 0);
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
