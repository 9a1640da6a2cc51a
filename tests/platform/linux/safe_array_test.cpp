#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "tests/platform/linux/fake_object.h"
#include "tests/platform/linux/variants.h"

namespace {

using mavrin2::tests::FakeObject;
using mavrin2::tests::Value;

struct Destroy {
    void operator()(SAFEARRAY* array) const { EXPECT_EQ(SafeArrayDestroy(array), S_OK); }
};
using Array = std::unique_ptr<SAFEARRAY, Destroy>;

TEST(SafeArrays, AreZeroAndAlignedForEveryType) {
    for (const auto& [type, size] : {std::pair{VT_I1, 1u},
                                     {VT_UI1, 1u},
                                     {VT_I2, 2u},
                                     {VT_BOOL, 2u},
                                     {VT_I4, 4u},
                                     {VT_R4, 4u},
                                     {VT_R8, 8u},
                                     {VT_I8, 8u},
                                     {VT_CY, 8u},
                                     {VT_DATE, 8u},
                                     {VT_BSTR, 8u},
                                     {VT_DISPATCH, 8u},
                                     {VT_UNKNOWN, 8u},
                                     {VT_VARIANT, 24u},
                                     {VT_ERROR, 4u}}) {
        const Array array(SafeArrayCreateVector(type, -3, 1000));
        ASSERT_TRUE(array) << type;
        EXPECT_EQ(SafeArrayGetElemsize(array.get()), size) << type;
        VARTYPE found = 0;
        EXPECT_EQ(SafeArrayGetVartype(array.get(), &found), S_OK);
        EXPECT_EQ(found, type);
        void* data = nullptr;
        ASSERT_EQ(SafeArrayAccessData(array.get(), &data), S_OK);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(data) % 16, 0u);
        const auto* const bytes = static_cast<const char*>(data);
        EXPECT_TRUE(std::all_of(bytes, bytes + 1000 * size, [](char b) { return b == 0; }));
        EXPECT_EQ(SafeArrayUnaccessData(array.get()), S_OK);
    }
    for (const int type : {int{VT_EMPTY}, int{VT_NULL}, 15, int{VT_VOID}, VT_ARRAY | VT_I2}) {
        EXPECT_EQ(SafeArrayCreateVector(static_cast<VARTYPE>(type), 0, 1), nullptr) << type;
    }
}

TEST(SafeArrays, KeepTheFirstIndexFastest) {
    SAFEARRAYBOUND bounds[] = {{3, 1}, {4, -2}};
    const Array array(SafeArrayCreate(VT_I2, 2, bounds));
    LONG lower = 0;
    LONG upper = 0;
    ASSERT_EQ(SafeArrayGetLBound(array.get(), 2, &lower), S_OK);
    ASSERT_EQ(SafeArrayGetUBound(array.get(), 2, &upper), S_OK);
    EXPECT_EQ(std::pair(lower, upper), std::pair(-2, 1));
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 3, &upper), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetLBound(array.get(), 0, &lower), DISP_E_BADINDEX);

    SHORT value = 7;
    LONG place[] = {2, 0};
    ASSERT_EQ(SafeArrayPutElement(array.get(), place, &value), S_OK);
    EXPECT_EQ(static_cast<SHORT*>(array->pvData)[1 + 2 * 3], 7);
    for (const auto& [first, second] : {std::pair{0, 0}, {4, 0}, {1, -3}, {1, 2}}) {
        LONG outside[] = {first, second};
        EXPECT_EQ(SafeArrayPutElement(array.get(), outside, &value), DISP_E_BADINDEX);
        EXPECT_EQ(SafeArrayGetElement(array.get(), outside, &value), DISP_E_BADINDEX);
    }
}

TEST(SafeArrays, OwnTheirElements) {
    FakeObject object;
    {
        const Array objects(SafeArrayCreateVector(VT_DISPATCH, 0, 3));
        LONG index = 1;
        ASSERT_EQ(SafeArrayPutElement(objects.get(), &index, &object), S_OK);
        ASSERT_EQ(SafeArrayPutElement(objects.get(), &index, &object), S_OK) << "the old one goes";
        EXPECT_EQ(object.References(), 1u);
        IDispatch* found = nullptr;
        ASSERT_EQ(SafeArrayGetElement(objects.get(), &index, &found), S_OK);
        EXPECT_EQ(object.References(), 2u);
        found->Release();
        SAFEARRAY* copied = nullptr;
        ASSERT_EQ(SafeArrayCopy(objects.get(), &copied), S_OK);
        const Array copy(copied);
        EXPECT_EQ(object.References(), 2u);
        SAFEARRAYBOUND one = {1, 0};
        ASSERT_EQ(SafeArrayRedim(copy.get(), &one), S_OK);
        EXPECT_EQ(object.References(), 1u) << "what is cut off is released";
    }
    EXPECT_EQ(object.References(), 0u);

    const Array variants(SafeArrayCreateVector(VT_VARIANT, 0, 2));
    LONG index = 0;
    Value text(u"text");
    ASSERT_EQ(SafeArrayPutElement(variants.get(), &index, &text), S_OK);
    Value back;
    ASSERT_EQ(SafeArrayGetElement(variants.get(), &index, &back), S_OK);
    EXPECT_EQ(back.Text(), u"text");
    EXPECT_NE(back->bstrVal, text->bstrVal);
}

TEST(SafeArrays, KeepTheirElementsWhenTheyGrow) {
    const Array array(SafeArrayCreateVector(VT_I2, 5, 3));
    LONG index = 7;
    SHORT value = 42;
    ASSERT_EQ(SafeArrayPutElement(array.get(), &index, &value), S_OK);
    SAFEARRAYBOUND larger = {100000, 5};
    ASSERT_EQ(SafeArrayRedim(array.get(), &larger), S_OK);
    const auto* const data = static_cast<const SHORT*>(array->pvData);
    EXPECT_EQ(data[2], 42);
    EXPECT_TRUE(std::all_of(data + 3, data + 100000, [](SHORT s) { return s == 0; }));
    SAFEARRAYBOUND none = {0, 5};
    ASSERT_EQ(SafeArrayRedim(array.get(), &none), S_OK);
    LONG upper = 0;
    ASSERT_EQ(SafeArrayGetUBound(array.get(), 1, &upper), S_OK);
    EXPECT_EQ(upper, 4);
}

TEST(SafeArrays, StayAsTheyAreWhileTheyAreLocked) {
    const Array array(SafeArrayCreateVector(VT_I2, 0, 3));
    SAFEARRAYBOUND larger = {5, 0};
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array.get(), &data), S_OK);
    EXPECT_EQ(SafeArrayRedim(array.get(), &larger), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayDestroy(array.get()), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array.get()), S_OK);
    EXPECT_EQ(SafeArrayUnlock(array.get()), E_UNEXPECTED) << "there was one lock only";
    array->fFeatures |= FADF_FIXEDSIZE;
    EXPECT_EQ(SafeArrayRedim(array.get(), &larger), DISP_E_ARRAYISLOCKED);
}

TEST(SafeArrays, AreNotMadeWhereNoMemoryCouldHoldThem) {
    SAFEARRAYBOUND bounds[] = {{0xFFFFFFFF, 0}, {0xFFFFFFFF, 0}, {0xFFFFFFFF, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_I2, 3, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I2, 2, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I2, 0, bounds), nullptr);
}

TEST(SafeArrays, TakeNullForNoArray) {
    SAFEARRAY* copy = nullptr;
    VARTYPE type = 0;
    void* data = nullptr;
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayCopy(nullptr, &copy), S_OK);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(SafeArrayAccessData(nullptr, &data), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetVartype(nullptr, &type), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
}

}  // namespace
