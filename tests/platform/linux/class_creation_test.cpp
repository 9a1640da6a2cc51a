#include <gtest/gtest.h>

#include <fstream>

#include "platform/component_registry.h"
#include "tests/platform/linux/fake_object.h"
#include "tests/platform/linux/modules/counting_class.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace {

using mavrin2::platform::RegistryChange;
using mavrin2::platform::SystemComponentRegistry;
using mavrin2::tests::EnvironmentVariable;
using mavrin2::tests::FakeObject;
using mavrin2::tests::ScratchFolder;

class ClassCreation : public testing::Test {
protected:
    void Register(REFCLSID clsid, const std::filesystem::path& module) {
        OLECHAR id[39];
        StringFromGUID2(clsid, id, 39);
        const std::u16string key = std::u16string(u"CLSID\\") + id;
        const RegistryChange changes[] = {
            {RegistryChange::Kind::SetValue, key + u"\\InprocServer32", {}, module.u16string()},
            {RegistryChange::Kind::SetValue, key + u"\\ProgID", {}, u"Test.Counting"},
            {RegistryChange::Kind::SetValue, u"Test.Counting\\CLSID", {}, id},
        };
        ASSERT_EQ(SystemComponentRegistry()->Apply(changes), S_OK);
    }

    static HRESULT Create(REFCLSID clsid, REFIID iid = IID_IUnknown, IUnknown* outer = nullptr) {
        void* object = &object;
        const HRESULT status = CoCreateInstance(clsid, outer, CLSCTX_ALL, iid, &object);
        EXPECT_EQ(object != nullptr, SUCCEEDED(status));
        if (object != nullptr) static_cast<IUnknown*>(object)->Release();
        return status;
    }

    ScratchFolder folder_;
    EnvironmentVariable variable_{"MAVRIN2_REGISTRY", (folder_.Path() / "components").string()};
};

TEST_F(ClassCreation, FindsTheModuleOfAClassAndPassesOnWhatItSays) {
    Register(CLSID_Counting, MAVRIN2_TEST_MODULE);
    EXPECT_EQ(Create(CLSID_Counting), S_OK);
    EXPECT_EQ(Create(CLSID_Counting, IID_IDispatch), E_NOINTERFACE);
    FakeObject outer;
    EXPECT_EQ(Create(CLSID_Counting, IID_IUnknown, &outer), CLASS_E_NOAGGREGATION);
    // Registered for this module, which does not know it.
    Register(IID_IDispatch, MAVRIN2_TEST_MODULE);
    EXPECT_EQ(Create(IID_IDispatch), CLASS_E_CLASSNOTAVAILABLE);

    void* object = nullptr;
    EXPECT_EQ(CoCreateInstance(CLSID_Counting, nullptr, CLSCTX_LOCAL_SERVER, IID_IUnknown, &object),
              REGDB_E_CLASSNOTREG)
        << "there are only classes in the process";
    EXPECT_EQ(CoCreateInstance(CLSID_Counting, nullptr, CLSCTX_ALL, IID_IUnknown, nullptr),
              E_POINTER);
}

TEST_F(ClassCreation, SaysWhyAModuleCannotServe) {
    EXPECT_EQ(Create(CLSID_Counting), REGDB_E_CLASSNOTREG);
    Register(CLSID_Counting, folder_.Path() / "missing.so");
    EXPECT_EQ(Create(CLSID_Counting), CO_E_DLLNOTFOUND);
    const auto text = folder_.Path() / "text.so";
    std::ofstream(text) << "no library";
    Register(CLSID_Counting, text);
    EXPECT_EQ(Create(CLSID_Counting), CO_E_ERRORINDLL);
    Register(CLSID_Counting, MAVRIN2_TEST_NO_COMPONENT);
    EXPECT_EQ(Create(CLSID_Counting), CO_E_ERRORINDLL);
    Register(CLSID_Counting, MAVRIN2_TEST_MODULE);
    EXPECT_EQ(Create(CLSID_Counting), S_OK) << "failures are not remembered";
}

TEST_F(ClassCreation, TranslatesProgramIdentifiersBothWays) {
    CLSID clsid = IID_IDispatch;
    LPOLESTR progId = nullptr;
    EXPECT_EQ(CLSIDFromProgID(u"Test.Counting", &clsid), CO_E_CLASSSTRING);
    EXPECT_TRUE(clsid == GUID_NULL);
    EXPECT_EQ(ProgIDFromCLSID(CLSID_Counting, &progId), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(progId, nullptr);

    Register(CLSID_Counting, MAVRIN2_TEST_MODULE);
    EXPECT_EQ(CLSIDFromProgID(u"test.counting", &clsid), S_OK);
    EXPECT_TRUE(clsid == CLSID_Counting);
    EXPECT_EQ(CLSIDFromString(u"Test.Counting", &clsid), S_OK);
    ASSERT_EQ(ProgIDFromCLSID(CLSID_Counting, &progId), S_OK);
    EXPECT_EQ(std::u16string(progId), u"Test.Counting");
    CoTaskMemFree(progId);

    const RegistryChange broken[] = {
        {RegistryChange::Kind::SetValue, u"{loop}\\CLSID", {}, u"{loop}"}};
    ASSERT_EQ(SystemComponentRegistry()->Apply(broken), S_OK);
    EXPECT_EQ(CLSIDFromString(u"{loop}", &clsid), CO_E_CLASSSTRING);
}

}  // namespace
