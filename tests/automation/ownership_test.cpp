#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "automation/com_ptr.h"
#include "automation/guarded.h"
#include "automation/safe_array.h"
#include "tests/automation/thing.h"

namespace mavrin2::tests {
namespace {

using automation::ArrayView;
using automation::ComPtr;
using automation::Guarded;
using automation::SafeArray;
using automation::StatusError;

TEST(ComPtr, HoldsExactlyOneReference) {
    ComPtr<TestThing> thing = TestThing::Make();
    {
        const ComPtr<TestThing> copy = thing;
        ComPtr<TestThing> moved = std::move(thing);
        thing = copy;
        moved = nullptr;
    }
    thing = ComPtr<TestThing>(thing.Get());
    EXPECT_EQ(TestThing::Alive(), 1);
    TestThing* raw = thing.Detach();
    EXPECT_EQ(TestThing::Alive(), 1);
    thing = ComPtr<TestThing>::Adopt(raw);
    EXPECT_FALSE(thing.As<IConnectionPoint>());
    *thing.Put() = nullptr;
    EXPECT_EQ(TestThing::Alive(), 0) << "what is to be filled is dropped first";
}

TEST(ArrayView, ShowsAndLocksAnArrayOfItsElementsOnly) {
    SafeArray<std::int16_t> array(3);
    {
        const ArrayView<std::int16_t> view(array.Get());
        ASSERT_EQ(view.Elements().size(), 3U);
        view.Elements()[2] = -5;
        EXPECT_EQ(SafeArrayDestroy(array.Get()), DISP_E_ARRAYISLOCKED);
        EXPECT_TRUE(ArrayView<float>(array.Get()).Elements().empty());
    }
    array.Resize(4);
    EXPECT_EQ(ArrayView<std::int16_t>(array.Get()).Elements()[2], -5);
    array.Resize(0);
    EXPECT_TRUE(ArrayView<std::int16_t>(array.Get()).Elements().empty());
    EXPECT_TRUE(ArrayView<std::int16_t>(nullptr).Elements().empty());

    SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
    SAFEARRAY* square = SafeArrayCreate(VT_I2, 2, bounds);
    EXPECT_TRUE(ArrayView<std::int16_t>(square).Elements().empty());
    EXPECT_EQ(SafeArrayDestroy(square), S_OK) << "what is refused is not locked";
}

TEST(Guarded, MakesAStatusOfWhateverIsThrown) {
    EXPECT_EQ(Guarded([] {}), S_OK);
    EXPECT_EQ(Guarded([]() -> HRESULT { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(Guarded([] { automation::ThrowIfFailed(S_FALSE); }), S_OK);
    EXPECT_EQ(Guarded([] { throw StatusError{E_ABORT}; }), E_ABORT);
    EXPECT_EQ(Guarded([] { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(Guarded([] { throw std::runtime_error("x"); }), E_UNEXPECTED);
    EXPECT_EQ(Guarded([] { throw 5; }), E_UNEXPECTED);
}

}  // namespace
}  // namespace mavrin2::tests
