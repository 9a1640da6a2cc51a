#include "tests/automation/thing.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <span>
#include <sstream>
#include <thread>

#include "automation/error_information.h"
#include "automation/safe_array.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "platform/posting.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::Guarded;
using automation::NewBstr;
using automation::ToUtf8;

std::atomic<LONG> alive = 0;

}  // namespace

TestThing::TestThing(IUnknown* outer)
    : AutomationObject(outer),
      points_(Identity(), {&DIID_TestThingEvents, &IID_IPropertyNotifySink}),
      classInformation_(Identity(), &TestLibrary, CLSID_TestThing) {
    ++alive;
}

TestThing::~TestThing() {
    --alive;
}

LONG TestThing::Alive() {
    return alive;
}

void* TestThing::FindInterface(REFIID iid) {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer)) return &points_;
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2))
        return &classInformation_;
    return nullptr;
}

STDMETHODIMP TestThing::EchoShort(SHORT Value, SHORT* Result) {
    *Result = Value;
    return S_OK;
}

STDMETHODIMP TestThing::EchoLong(LONG Value, LONG* Result) {
    *Result = Value;
    return S_OK;
}

STDMETHODIMP TestThing::EchoFloat(FLOAT Value, FLOAT* Result) {
    *Result = Value;
    return S_OK;
}

STDMETHODIMP TestThing::EchoDouble(DOUBLE Value, DOUBLE* Result) {
    *Result = Value;
    return S_OK;
}

STDMETHODIMP TestThing::EchoText(BSTR Value, BSTR* Result) {
    return Guarded([&] { *Result = NewBstr(Bstr::View(Value)); });
}

STDMETHODIMP TestThing::EchoShape(ShapeConstants Value, ShapeConstants* Result) {
    *Result = Value;
    return S_OK;
}

STDMETHODIMP TestThing::EchoBoolean(VARIANT_BOOL Value, VARIANT_BOOL* Result) {
    *Result = Value;
    return S_OK;
}

STDMETHODIMP TestThing::EchoAny(VARIANT Value, VARIANT* Result) {
    return VariantCopy(Result, &Value);
}

STDMETHODIMP TestThing::DoubleAll(SAFEARRAY* Values, SAFEARRAY** Result) {
    return Guarded([&] {
        const automation::ArrayView<std::int16_t> values(Values);
        automation::SafeArray<std::int16_t> doubled(values.Elements().size());
        const automation::ArrayView<std::int16_t> target(doubled.Get());
        for (std::size_t i = 0; i < values.Elements().size(); ++i)
            target.Elements()[i] = static_cast<std::int16_t>(2 * values.Elements()[i]);
        *Result = doubled.Detach();
    });
}

STDMETHODIMP TestThing::Divide(LONG Dividend, LONG Divisor, LONG* Remainder, BSTR* Text,
                               LONG* Quotient) {
    return Guarded([&]() -> HRESULT {
        if (Divisor == 0) return DISP_E_DIVBYZERO;
        *Remainder = Dividend % Divisor;
        *Quotient = Dividend / Divisor;
        *Text = NewBstr(std::to_string(Dividend) + "/" + std::to_string(Divisor));
        return S_OK;
    });
}

STDMETHODIMP TestThing::Grow(SAFEARRAY** Values, LONG* Count, BSTR* Text) {
    return Guarded([&] {
        const std::size_t count = automation::ArrayView<std::int16_t>(*Values).Elements().size();
        automation::SafeArray<std::int16_t> grown(count + 1);
        {
            const automation::ArrayView<std::int16_t> from(*Values);
            const automation::ArrayView<std::int16_t> to(grown.Get());
            std::ranges::copy(from.Elements(), to.Elements().begin());
            to.Elements().back() = 7;
        }
        automation::ThrowIfFailed(SafeArrayDestroy(std::exchange(*Values, grown.Detach())));
        ++*Count;
        const Bstr old = Bstr::Adopt(*Text);
        *Text = NewBstr(old.Utf8() + "!");
    });
}

STDMETHODIMP TestThing::Sum(SAFEARRAY** Values, LONG* Result) {
    const automation::ArrayView<std::int16_t> values(*Values);
    *Result = std::accumulate(values.Elements().begin(), values.Elements().end(), LONG{0});
    return S_OK;
}

STDMETHODIMP TestThing::WithDefaults(LONG First, SHORT Second, VARIANT_BOOL Third, FLOAT Fourth,
                                     BSTR Fifth, ShapeConstants Sixth, BSTR* Result) {
    return Guarded([&] {
        std::ostringstream text;
        text << First << ' ' << Second << ' ' << Third << ' ' << Fourth << ' '
             << ToUtf8(Bstr::View(Fifth)) << ' ' << static_cast<std::int32_t>(Sixth);
        *Result = NewBstr(text.str());
    });
}

STDMETHODIMP TestThing::IsSame(ITestThing* Other, VARIANT_BOOL* Result) {
    *Result = Other == this ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP TestThing::Fail(LONG Status, BSTR Description) {
    const std::string text = ToUtf8(Bstr::View(Description));
    if (text == "throw") return Guarded([]() -> HRESULT { throw std::bad_alloc(); });
    if (!text.empty()) automation::LeaveErrorInformation(Id, "MavrinTest.Thing", text);
    return Status;
}

STDMETHODIMP TestThing::MakeThing(ITestThing** Result) {
    return Guarded([&] { *Result = Make().Detach(); });
}

STDMETHODIMP TestThing::Fire(SHORT Percent, BSTR Text) {
    VARIANT arguments[2] = {};
    arguments[0].vt = VT_I2;
    arguments[0].iVal = Percent;
    arguments[1].vt = VT_BSTR;
    arguments[1].bstrVal = Text;
    automation::FireEvent(Events(), event::Progress, arguments);
    return automation::FireEvent(Events(), event::Done, {});
}

STDMETHODIMP TestThing::FireLater(SHORT Percent, BSTR Text) {
    std::thread([queue = platform::PostingQueue::OfThisThread(), self = ComPtr<ITestThing>(this),
                 Percent, text = ToUtf8(Bstr::View(Text))]() mutable {
        queue->Post([self = std::move(self), Percent, text] {
            self->Fire(Percent, Bstr(std::string_view(text)).Get());
        });
    }).join();
    return S_OK;
}

STDMETHODIMP TestThing::get_Item(LONG Index, BSTR* Value) {
    return Guarded([&]() -> HRESULT {
        const auto found = items_.find(Index);
        if (found == items_.end()) return DISP_E_BADINDEX;
        *Value = NewBstr(std::string_view(found->second));
        return S_OK;
    });
}

STDMETHODIMP TestThing::put_Item(LONG Index, BSTR Value) {
    return Guarded([&] { items_[Index] = ToUtf8(Bstr::View(Value)); });
}

STDMETHODIMP TestThing::get_Enabled(VARIANT_BOOL* Value) {
    *Value = enabled_;
    return S_OK;
}

STDMETHODIMP TestThing::put_Enabled(VARIANT_BOOL Value) {
    enabled_ = Value;
    return S_OK;
}

STDMETHODIMP TestThing::get_Friend(ITestThing** Value) {
    *Value = ComPtr<ITestThing>(friend_).Detach();
    return S_OK;
}

STDMETHODIMP TestThing::put_Friend(ITestThing* Value) {
    friend_ = ComPtr<ITestThing>(Value);
    friendBy_ = "put";
    return S_OK;
}

STDMETHODIMP TestThing::putref_Friend(ITestThing* Value) {
    friend_ = ComPtr<ITestThing>(Value);
    friendBy_ = "putref";
    return S_OK;
}

STDMETHODIMP TestThing::get_FriendBy(BSTR* Value) {
    return Guarded([&] { *Value = NewBstr(std::string_view(friendBy_)); });
}

STDMETHODIMP TestThing::get_Alive(LONG* Value) {
    *Value = alive;
    return S_OK;
}

STDMETHODIMP TestThing::put_Secret(LONG) {
    return S_OK;
}

}  // namespace mavrin2::tests
