#include "automation/type_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/text.h"
#include "tests/automation/late_call.h"
#include "tests/automation/thing.h"
#include "tests/automation/type_texts.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::MakeTypeLibrary;
using automation::OleString;
using automation::ToOle;
using automation::ToUtf8;
using testing::ElementsAre;

class TypeLibrary : public testing::Test {
protected:
    ComPtr<ITypeInfo> Type(UINT place) {
        ComPtr<ITypeInfo> information;
        EXPECT_EQ(library_->GetTypeInfo(place, information.Put()), S_OK);
        return information;
    }

    ComPtr<ITypeLib> library_ = MakeTypeLibrary(TestLibrary());
};

TEST_F(TypeLibrary, ListsEnumerationsInterfacesAndClassesInThisOrder) {
    ASSERT_EQ(library_->GetTypeInfoCount(), 4U);
    const std::pair<TYPEKIND, const char*> expected[] = {{TKIND_ENUM, "ShapeConstants"},
                                                         {TKIND_DISPATCH, "ITestThing"},
                                                         {TKIND_DISPATCH, "_ITestThingEvents"},
                                                         {TKIND_COCLASS, "TestThing"}};
    for (UINT i = 0; i < 4; ++i) {
        TYPEKIND kind = TKIND_MAX;
        Bstr name;
        EXPECT_EQ(library_->GetTypeInfoType(i, &kind), S_OK);
        EXPECT_EQ(kind, expected[i].first);
        EXPECT_EQ(
            library_->GetDocumentation(static_cast<INT>(i), name.Put(), nullptr, nullptr, nullptr),
            S_OK);
        EXPECT_EQ(name.Utf8(), expected[i].second);
        EXPECT_EQ(NameOf(*Type(i)), expected[i].second);

        ComPtr<ITypeLib> back;
        UINT place = 99;
        EXPECT_EQ(Type(i)->GetContainingTypeLib(back.Put(), &place), S_OK);
        EXPECT_EQ(place, i);
        EXPECT_EQ(back->GetTypeInfoCount(), 4U);
    }
    ComPtr<ITypeInfo> none;
    EXPECT_EQ(library_->GetTypeInfo(4, none.Put()), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(library_->GetTypeInfoOfGuid(IID_IUnknown, none.Put()), TYPE_E_ELEMENTNOTFOUND);
    ASSERT_EQ(library_->GetTypeInfoOfGuid(DIID_TestThingEvents, none.Put()), S_OK);
    EXPECT_EQ(NameOf(*none), "_ITestThingEvents");
}

TEST_F(TypeLibrary, TellsItsNameVersionAndWhichNamesItHolds) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, LIBID_Test));
    EXPECT_EQ(attributes->wMajorVerNum, 3);
    EXPECT_EQ(attributes->wMinorVerNum, 1);
    library_->ReleaseTLibAttr(attributes);
    Bstr name;
    Bstr help;
    EXPECT_EQ(library_->GetDocumentation(-1, name.Put(), help.Put(), nullptr, nullptr), S_OK);
    EXPECT_EQ(name.Utf8(), "TestLib");
    EXPECT_EQ(help.Utf8(), "Library of the tests");

    for (const auto& [text, there] : {std::pair(OLESTR("echoLONG"), true),
                                      {OLESTR("TestThing"), true},
                                      {OLESTR("LaterOne"), false}}) {
        OleString wanted = text;
        BOOL found = 2;
        EXPECT_EQ(library_->IsName(wanted.data(), 0, &found), S_OK);
        EXPECT_EQ(found != 0, there) << ToUtf8(wanted);
    }
}

TEST_F(TypeLibrary, DescribesEveryMemberWithItsTypesAndDefaults) {
    const auto thing = Type(1);
    auto members = MembersOf(*thing);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(thing->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, IID_TestThing));
    EXPECT_EQ(attributes->cFuncs, 28);
    EXPECT_EQ(attributes->wTypeFlags & TYPEFLAG_FDUAL, TYPEFLAG_FDUAL);
    EXPECT_EQ(attributes->cbSizeVft, (7 + 29) * sizeof(void*));
    thing->ReleaseTypeAttr(attributes);

    EXPECT_THAT(members[1], ElementsAre("1 2 EchoShort(in 2 Value)"));
    EXPECT_THAT(members[4], ElementsAre("1 5 EchoDouble(in 5 Value)"));
    EXPECT_THAT(members[5], ElementsAre("1 8 EchoText(in 8 Value)"));
    EXPECT_THAT(members[6], ElementsAre("1 ShapeConstants EchoShape(in ShapeConstants Value)"));
    EXPECT_THAT(members[7], ElementsAre("1 11 EchoBoolean(in 11 Value)"));
    EXPECT_THAT(members[8], ElementsAre("1 12 EchoAny(in 12 Value)"));
    EXPECT_THAT(members[9], ElementsAre()) << "planned, but not there yet";
    EXPECT_THAT(members[10], ElementsAre("1 [2] DoubleAll(in [2] Values)"));
    EXPECT_THAT(members[30],
                ElementsAre("1 3 Divide(in 3 Dividend, in 3 Divisor, out *3 Remainder, "
                            "out *8 Text)"));
    EXPECT_THAT(members[12],
                ElementsAre("1 8 WithDefaults(in 3 First, in optional = VT 2 7 2 Second, "
                            "in optional = VT 11 -1 11 Third, in optional = VT 4 -2.5 4 Fourth, "
                            "in optional = VT 8 none 8 Fifth, "
                            "in optional = VT 3 4 ShapeConstants Sixth)"));
    EXPECT_THAT(members[11],
                ElementsAre("1 24 Grow(in out *[2] Values, in out *3 Count, in out *8 Text)"));
    EXPECT_THAT(members[18], ElementsAre("1 3 Sum(in *[2] Values)"));
    EXPECT_THAT(members[13], ElementsAre("1 11 IsSame(in *ITestThing Other)"));
    EXPECT_THAT(members[14], ElementsAre("1 24 Fail(in 3 Status, in 8 Description)"));
    EXPECT_THAT(members[15], ElementsAre("1 *ITestThing MakeThing()"));
    EXPECT_THAT(members[0], ElementsAre("2 8 Item(in 3 Index)", "4 24 Item(in 3 Index, in 8)"));
    EXPECT_THAT(members[102], ElementsAre("2 *ITestThing Friend()", "4 24 Friend(in *ITestThing)",
                                          "8 24 Friend(in *ITestThing)"));
    EXPECT_EQ(HelpOf(*thing, 2), "Gives back, any 32 bits");
    EXPECT_EQ(HelpOf(*thing, MEMBERID_NIL), "A thing");

    OleString name = ToOle(std::string_view("withdefaults"));
    LPOLESTR names[] = {name.data()};
    MEMBERID id = 0;
    EXPECT_EQ(thing->GetIDsOfNames(names, 1, &id), S_OK);
    EXPECT_EQ(id, 12);
}

TEST_F(TypeLibrary, DescribesEventsThatAClassRaises) {
    const auto one = Type(3);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(one->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, CLSID_TestThing));
    EXPECT_EQ(attributes->cImplTypes, 2);
    one->ReleaseTypeAttr(attributes);

    const std::pair<const char*, INT> expected[] = {
        {"ITestThing", IMPLTYPEFLAG_FDEFAULT},
        {"_ITestThingEvents", IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE}};
    for (UINT i = 0; i < 2; ++i) {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> implemented;
        ASSERT_EQ(one->GetRefTypeOfImplType(i, &reference), S_OK);
        ASSERT_EQ(one->GetImplTypeFlags(i, &flags), S_OK);
        ASSERT_EQ(one->GetRefTypeInfo(reference, implemented.Put()), S_OK);
        EXPECT_EQ(NameOf(*implemented), expected[i].first);
        EXPECT_EQ(flags, expected[i].second);
    }
    auto events = MembersOf(*Type(2));
    EXPECT_THAT(events[1], ElementsAre("1 24 Progress(in 2 Percent, in 8 Text)"));
    EXPECT_THAT(events[4], ElementsAre("1 24 Done()"));

    // The same by way of an object.
    const auto provider = TestThing::Make().As<IProvideClassInfo2>();
    ComPtr<ITypeInfo> own;
    ASSERT_EQ(provider->GetClassInfo(own.Put()), S_OK);
    EXPECT_EQ(NameOf(*own), "TestThing");
    GUID source{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
    EXPECT_TRUE(IsEqualGUID(source, DIID_TestThingEvents));
    EXPECT_EQ(provider->GetGUID(7, &source), E_INVALIDARG);
}

TEST_F(TypeLibrary, EndsWhereItsListsEnd) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> none;
    void* object = nullptr;
    FUNCDESC* function = nullptr;
    VARDESC* variable = nullptr;
    Bstr name;
    EXPECT_EQ(Type(0)->GetFuncDesc(0, &function), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(Type(1)->GetVarDesc(0, &variable), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(Type(1)->GetDocumentation(9, name.Put(), nullptr, nullptr, nullptr),
              TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(Type(3)->GetRefTypeOfImplType(2, &reference), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(Type(1)->GetRefTypeInfo(4, none.Put()), TYPE_E_ELEMENTNOTFOUND);
    EXPECT_EQ(Type(1)->CreateInstance(nullptr, IID_IUnknown, &object), TYPE_E_BADMODULEKIND);
}

TEST_F(TypeLibrary, DescribesEnumerations) {
    const auto shapes = Type(0);
    EXPECT_THAT(ConstantsOf(*shapes), ElementsAre("ROUND = 1", "SQUARE = 4", "SUNKEN = -3"));
}

TEST_F(TypeLibrary, InvokesByWayOfTheTypeInformation) {
    const ComPtr<TestThing> thing = TestThing::Make();
    automation::Variant argument = ToVariant("8");
    automation::Variant result;
    DISPPARAMS arguments{&argument, nullptr, 1, 0};
    EXPECT_EQ(Type(1)->Invoke(static_cast<ITestThing*>(thing.Get()), 2, DISPATCH_METHOD, &arguments,
                              &result, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(FromVariant(result), Value(LONG{8}));
    EXPECT_EQ(
        Type(2)->Invoke(thing.Get(), 1, DISPATCH_METHOD, &arguments, &result, nullptr, nullptr),
        TYPE_E_ELEMENTNOTFOUND)
        << "events are not called on the object";
}

}  // namespace
}  // namespace mavrin2::tests
