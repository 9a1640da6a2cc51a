#include "automation/module.h"

#include <gtest/gtest.h>

#include "platform/component_registry.h"
#include "platform/module_path.h"
#include "tests/automation/thing.h"
#include "tests/support/scratch_registry.h"

namespace mavrin2::tests {
namespace {

using automation::CanUnloadNow;
using automation::ClassEntry;
using automation::ComPtr;
using automation::GetClassObject;
using automation::ModuleContents;

HRESULT CreateThing(IUnknown* outer, REFIID iid, void** object) {
    return TestThing::Create(outer, iid, object);
}

// One of each kind: a control, a programmable class, a plain one.
constexpr CLSID kControlId = {
    0x5e1f0010, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
constexpr CLSID kPlainId = {
    0x5e1f0011, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
const ClassEntry kClasses[] = {
    {kControlId, &CreateThing, "Control Class", "Test.Control.2", "Test.Control", "Apartment", true,
     true},
    {CLSID_TestThing, &CreateThing, "Thing Class", "Test.Thing.1", "Test.Thing", "Apartment", true},
    {kPlainId, &CreateThing, "Plain Class", "Test.Plain.1", "Test.Plain", "both"},
};
const ModuleContents kModule{kClasses, &TestLibrary};

constexpr const char16_t* kControlKey = u"CLSID\\{5E1F0010-7A51-4C1E-8F01-20116D9A3301}";
constexpr const char16_t* kThingKey = u"CLSID\\{5E1F0003-7A51-4C1E-8F01-20116D9A3301}";
constexpr const char16_t* kPlainKey = u"CLSID\\{5E1F0011-7A51-4C1E-8F01-20116D9A3301}";

TEST(ClassObject, MakesObjectsOfTheAskedClassOnly) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(GetClassObject(kModule, CLSID_TestThing, IID_IClassFactory, factory.PutVoid()), S_OK);
    ComPtr<ITestThing> thing;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_TestThing, thing.PutVoid()), S_OK);
    ComPtr<ITestThing> other;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_TestThing, other.PutVoid()), S_OK);
    EXPECT_NE(thing.Get(), other.Get());
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_TestThing, other.PutVoid()),
              CLASS_E_NOAGGREGATION);

    void* object = &object;
    EXPECT_EQ(GetClassObject(kModule, IID_IUnknown, IID_IClassFactory, &object),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(GetClassObject(kModule, kPlainId, IID_TestThing, &object), E_NOINTERFACE);
    EXPECT_EQ(GetClassObject(kModule, kPlainId, IID_IClassFactory, nullptr), E_POINTER);
}

TEST(ClassObject, KeepsTheModuleAsLongAsAnythingOfItIsInUse) {
    EXPECT_EQ(CanUnloadNow(), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(GetClassObject(kModule, kPlainId, IID_IClassFactory, factory.PutVoid()), S_OK);
    EXPECT_EQ(CanUnloadNow(), S_FALSE) << "a class object";
    ComPtr<IUnknown> thing;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, thing.PutVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(CanUnloadNow(), S_FALSE) << "an object and a lock";
    thing.Reset();
    EXPECT_EQ(CanUnloadNow(), S_FALSE) << "a lock";

    ASSERT_EQ(GetClassObject(kModule, kPlainId, IID_IClassFactory, factory.PutVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.Reset();
    EXPECT_EQ(CanUnloadNow(), S_OK);
}

class Registration : public testing::Test {
protected:
    static std::optional<std::u16string> At(const std::u16string& key,
                                            const std::u16string& name = {}) {
        return platform::SystemComponentRegistry()->Value(key, name);
    }
    ScratchRegistry registry_;
};

TEST_F(Registration, EntersEveryClassWithAllItsKeys) {
    ASSERT_EQ(RegisterModule(kModule), S_OK);
    const std::u16string module = platform::PathOfModule(&kModule).u16string();
    const std::u16string library = u"{5E1F0004-7A51-4C1E-8F01-20116D9A3301}";
    struct {
        const char16_t *Key, *Id, *Description, *Versioned, *ProgId, *Model;
        bool Programmable, Control;
    } const classes[] = {
        {kControlKey, kControlKey + 6, u"Control Class", u"Test.Control.2", u"Test.Control",
         u"Apartment", true, true},
        {kThingKey, kThingKey + 6, u"Thing Class", u"Test.Thing.1", u"Test.Thing", u"Apartment",
         true, false},
        {kPlainKey, kPlainKey + 6, u"Plain Class", u"Test.Plain.1", u"Test.Plain", u"both", false,
         false},
    };
    using Entry = std::optional<std::u16string>;
    for (const auto& one : classes) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(one.ProgId)));
        const std::u16string key = one.Key;
        const std::u16string versioned = one.Versioned;
        const std::u16string progId = one.ProgId;
        const auto ifSo = [](bool so, const std::u16string& value) {
            return so ? Entry(value) : std::nullopt;
        };
        EXPECT_EQ(At(versioned), one.Description);
        EXPECT_EQ(At(versioned + u"\\CLSID"), one.Id);
        EXPECT_EQ(At(versioned + u"\\CurVer"), std::nullopt);
        EXPECT_EQ(At(progId), one.Description);
        EXPECT_EQ(At(progId + u"\\CLSID"), one.Id);
        EXPECT_EQ(At(progId + u"\\CurVer"), ifSo(one.Programmable, versioned));
        EXPECT_EQ(At(key), one.Description);
        EXPECT_EQ(At(key + u"\\ProgID"), versioned);
        EXPECT_EQ(At(key + u"\\VersionIndependentProgID"), progId);
        EXPECT_EQ(At(key + u"\\InprocServer32"), module);
        EXPECT_EQ(At(key + u"\\InprocServer32", u"ThreadingModel"), one.Model);
        EXPECT_EQ(At(key + u"\\Programmable"), ifSo(one.Programmable, u""));
        EXPECT_EQ(At(key + u"\\TypeLib"), ifSo(one.Programmable, library));
        EXPECT_EQ(At(key + u"\\Control"), ifSo(one.Control, u""));
        EXPECT_EQ(At(key + u"\\Insertable"), ifSo(one.Control, u""));
        EXPECT_EQ(At(key + u"\\ToolboxBitmap32"), ifSo(one.Control, module + u", 101"));
        EXPECT_EQ(At(key + u"\\MiscStatus"), ifSo(one.Control, u"0"));
        EXPECT_EQ(At(key + u"\\MiscStatus\\1"), ifSo(one.Control, u"131473"));
        EXPECT_EQ(At(key + u"\\Version"), ifSo(one.Control, u"2.0"));
    }
}

TEST_F(Registration, ReplacesWhatAnOlderVersionLeftUnderTheClass) {
    const std::u16string stale = std::u16string(kPlainKey) + u"\\Control";
    const platform::RegistryChange changes[] = {
        {platform::RegistryChange::Kind::SetValue, stale, {}, u"from before"}};
    ASSERT_EQ(platform::SystemComponentRegistry()->Apply(changes), S_OK);
    ASSERT_EQ(RegisterModule(kModule), S_OK);
    EXPECT_EQ(At(stale), std::nullopt);
    EXPECT_EQ(At(kPlainKey), u"Plain Class");
}

TEST_F(Registration, IsTakenBackWithoutTouchingOthers) {
    const platform::RegistryChange others[] = {
        {platform::RegistryChange::Kind::SetValue, u"Other.Class", {}, u"another program's"}};
    ASSERT_EQ(platform::SystemComponentRegistry()->Apply(others), S_OK);
    ASSERT_EQ(RegisterModule(kModule), S_OK);
    ASSERT_EQ(At(u"Test.Control"), u"Control Class");
    ASSERT_EQ(UnregisterModule(kModule), S_OK);
    EXPECT_EQ(At(u"Other.Class"), u"another program's");
    for (const std::u16string key :
         {u"Test.Control.2", u"Test.Control.2\\CLSID", u"Test.Control", u"Test.Control\\CurVer",
          u"Test.Thing", u"Test.Plain.1\\CLSID", kControlKey, kThingKey, kPlainKey})
        EXPECT_EQ(At(key), std::nullopt) << testing::PrintToString(key);
    EXPECT_EQ(At(std::u16string(kControlKey) + u"\\MiscStatus\\1"), std::nullopt);
    EXPECT_EQ(UnregisterModule(kModule), S_OK) << "nothing to remove is no failure";
}

TEST_F(Registration, TellsWhenTheRegistryCannotBeWritten) {
    registry_.ForbidWriting();
    EXPECT_TRUE(FAILED(RegisterModule(kModule)));
    EXPECT_EQ(At(u"Test.Control.2"), std::nullopt);
}

}  // namespace
}  // namespace mavrin2::tests
