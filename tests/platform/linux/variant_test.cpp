#include <gtest/gtest.h>

#include "tests/platform/linux/fake_object.h"
#include "tests/platform/linux/variants.h"

namespace {

using mavrin2::tests::FakeObject;
using mavrin2::tests::Value;

TEST(Variants, ShareObjectsAndDuplicateStringsAndArrays) {
    FakeObject object;
    {
        object.AddRef();
        Value original(VT_DISPATCH, &VARIANT::pdispVal, &object);
        Value copy;
        ASSERT_EQ(VariantCopy(&copy, &original), S_OK);
        EXPECT_EQ(object.References(), 2u);
    }
    EXPECT_EQ(object.References(), 0u);

    Value text(u"text");
    Value textCopy;
    ASSERT_EQ(VariantCopy(&textCopy, &text), S_OK);
    EXPECT_NE(textCopy->bstrVal, text->bstrVal);
    EXPECT_EQ(textCopy.Text(), u"text");

    Value array(VT_ARRAY | VT_I2, &VARIANT::parray, SafeArrayCreateVector(VT_I2, 0, 3));
    ASSERT_EQ(VariantCopy(&textCopy, &array), S_OK) << "what was there is freed";
    EXPECT_NE(textCopy->parray, array->parray);
}

TEST(Variants, AreNotClearedWhileTheirArrayIsLocked) {
    Value array(VT_ARRAY | VT_I2, &VARIANT::parray, SafeArrayCreateVector(VT_I2, 0, 3));
    SafeArrayLock(array->parray);
    EXPECT_EQ(VariantClear(&array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(array->vt, VT_ARRAY | VT_I2);
    SafeArrayUnlock(array->parray);
}

TEST(Variants, LeaveWhatTheyReferToToItsOwner) {
    BSTR text = SysAllocString(u"mine");
    {
        Value reference(VT_BSTR | VT_BYREF, &VARIANT::pbstrVal, &text);
        Value plain;
        Value value;
        ASSERT_EQ(VariantCopy(&plain, &reference), S_OK);
        EXPECT_EQ(plain->vt, VT_BSTR | VT_BYREF);
        ASSERT_EQ(VariantCopyInd(&value, &reference), S_OK);
        EXPECT_NE(value->bstrVal, text);
        EXPECT_EQ(value.Text(), u"mine");
        ASSERT_EQ(VariantCopyInd(&reference, &reference), S_OK) << "in its own place";
        EXPECT_EQ(reference.Text(), u"mine");
    }
    SysFreeString(text);
}

TEST(Variants, FollowAReferenceToAVariantOneLevelDeep) {
    SHORT number = 7;
    VARIANT inner = {};
    inner.vt = VT_I2 | VT_BYREF;
    inner.piVal = &number;
    Value outer(VT_VARIANT | VT_BYREF, &VARIANT::pvarVal, &inner);
    Value value;
    ASSERT_EQ(VariantCopyInd(&value, &outer), S_OK);
    EXPECT_EQ(value->vt, VT_I2);
    EXPECT_EQ(value->iVal, 7);

    inner.vt = VT_VARIANT | VT_BYREF;
    inner.pvarVal = &inner;
    EXPECT_EQ(VariantCopyInd(&value, &outer), E_INVALIDARG);
    EXPECT_EQ(value->iVal, 7);
}

TEST(Variants, RefuseTypesThatAVariantCannotCarry) {
    for (const int type : {15, int{VT_VOID}, int{VT_PTR}, VT_I2 | VT_VECTOR, VT_I2 | VT_RESERVED,
                           int{VT_ARRAY}, int{VT_BYREF}, VT_NULL | VT_BYREF}) {
        VARIANT wrong = {};
        wrong.vt = static_cast<VARTYPE>(type);
        Value target(VT_I4, &VARIANT::lVal, 5);
        EXPECT_EQ(VariantClear(&wrong), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantCopy(&target, &wrong), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantChangeType(&target, &wrong, 0, VT_I4), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(VariantChangeType(&target, &target, 0, wrong.vt), DISP_E_BADVARTYPE) << type;
        EXPECT_EQ(target->lVal, 5);
    }
}

TEST(Parameters, AreFoundByPositionAndThenByName) {
    Value first(VT_I4, &VARIANT::lVal, 1);
    Value second(u"two");
    Value named(VT_R8, &VARIANT::dblVal, 3.5);
    VARIANT arguments[] = {*&named, *&second, *&first};
    DISPID names[] = {2};
    DISPPARAMS params = {arguments, names, 3, 1};

    Value result;
    UINT bad = 99;
    ASSERT_EQ(DispGetParam(&params, 0, VT_BSTR, &result, &bad), S_OK);
    EXPECT_EQ(result.Text(), u"1");
    ASSERT_EQ(DispGetParam(&params, 2, VT_I4, &result, &bad), S_OK);
    EXPECT_EQ(result->lVal, 4);
    EXPECT_EQ(DispGetParam(&params, 3, VT_I4, &result, &bad), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(bad, 99u);
    EXPECT_EQ(DispGetParam(&params, 1, VT_I4, &result, &bad), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(bad, 1u) << "its place among the arguments, which are in reverse order";
}

}  // namespace
