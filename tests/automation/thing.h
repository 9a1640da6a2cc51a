#pragma once

#include <map>
#include <string>

#include "automation/connection_points.h"
#include "automation/interface_description.h"
#include "automation/object.h"
#include "automation/type_information.h"
#include "platform/automation.h"

namespace mavrin2::tests {

enum class ShapeConstants : std::int32_t { ROUND = 1, SQUARE = 4, SUNKEN = -3 };

inline constexpr IID IID_TestThing = {
    0x5e1f0001, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
inline constexpr IID DIID_TestThingEvents = {
    0x5e1f0002, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
inline constexpr CLSID CLSID_TestThing = {
    0x5e1f0003, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};
inline constexpr GUID LIBID_Test = {
    0x5e1f0004, 0x7a51, 0x4c1e, {0x8f, 0x01, 0x20, 0x11, 0x6d, 0x9a, 0x33, 0x01}};

// A member for everything that a description can say.
struct ITestThing : public IDispatch {
    static constexpr IID Id = IID_TestThing;

    virtual HRESULT STDMETHODCALLTYPE EchoShort(SHORT Value, SHORT* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoLong(LONG Value, LONG* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoFloat(FLOAT Value, FLOAT* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoDouble(DOUBLE Value, DOUBLE* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoText(BSTR Value, BSTR* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoShape(ShapeConstants Value, ShapeConstants* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoBoolean(VARIANT_BOOL Value, VARIANT_BOOL* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE EchoAny(VARIANT Value, VARIANT* Result) = 0;
    MAVRIN2_RESERVED(LaterOne, 9)
    // Each of the 16-bit values twice as large.
    virtual HRESULT STDMETHODCALLTYPE DoubleAll(SAFEARRAY* Values, SAFEARRAY** Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE Divide(LONG Dividend, LONG Divisor, LONG* Remainder,
                                             BSTR* Text, LONG* Quotient) = 0;
    // Puts another array with one more value, 7, in the place of the caller's; counts, and writes
    // "!" after the text.
    virtual HRESULT STDMETHODCALLTYPE Grow(SAFEARRAY** Values, LONG* Count, BSTR* Text) = 0;
    // The sum of an array that is passed by its address but not changed.
    virtual HRESULT STDMETHODCALLTYPE Sum(SAFEARRAY** Values, LONG* Result) = 0;
    // The values it got, as text.
    virtual HRESULT STDMETHODCALLTYPE WithDefaults(LONG First, SHORT Second, VARIANT_BOOL Third,
                                                   FLOAT Fourth, BSTR Fifth, ShapeConstants Sixth,
                                                   BSTR* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsSame(ITestThing* Other, VARIANT_BOOL* Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fail(LONG Status, BSTR Description) = 0;
    // An object of its own each time.
    virtual HRESULT STDMETHODCALLTYPE MakeThing(ITestThing** Result) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fire(SHORT Percent, BSTR Text) = 0;
    // The same from another thread, by way of this thread's queue.
    virtual HRESULT STDMETHODCALLTYPE FireLater(SHORT Percent, BSTR Text) = 0;

    virtual HRESULT STDMETHODCALLTYPE get_Item(LONG Index, BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Item(LONG Index, BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Enabled(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Friend(ITestThing** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Friend(ITestThing* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE putref_Friend(ITestThing* Value) = 0;
    // How Friend was written last.
    virtual HRESULT STDMETHODCALLTYPE get_FriendBy(BSTR* Value) = 0;
    // Things of this process.
    virtual HRESULT STDMETHODCALLTYPE get_Alive(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Secret(LONG Value) = 0;
};

const automation::LibraryDescription& TestLibrary();
const automation::InterfaceDescription& TestThingEvents();

namespace event {
inline constexpr DISPID Progress = 1;  // Percent: short, Text: string
inline constexpr DISPID Done = 4;      // none
}  // namespace event

class TestThing final : public automation::AutomationObject<TestThing, ITestThing> {
public:
    explicit TestThing(IUnknown* outer);
    ~TestThing();

    static LONG Alive();

    void* FindInterface(REFIID iid);
    automation::ConnectionPoint& Events() { return points_.At(0); }

    STDMETHODIMP EchoShort(SHORT Value, SHORT* Result) override;
    STDMETHODIMP EchoLong(LONG Value, LONG* Result) override;
    STDMETHODIMP EchoFloat(FLOAT Value, FLOAT* Result) override;
    STDMETHODIMP EchoDouble(DOUBLE Value, DOUBLE* Result) override;
    STDMETHODIMP EchoText(BSTR Value, BSTR* Result) override;
    STDMETHODIMP EchoShape(ShapeConstants Value, ShapeConstants* Result) override;
    STDMETHODIMP EchoBoolean(VARIANT_BOOL Value, VARIANT_BOOL* Result) override;
    STDMETHODIMP EchoAny(VARIANT Value, VARIANT* Result) override;
    STDMETHODIMP DoubleAll(SAFEARRAY* Values, SAFEARRAY** Result) override;
    STDMETHODIMP Divide(LONG Dividend, LONG Divisor, LONG* Remainder, BSTR* Text,
                        LONG* Quotient) override;
    STDMETHODIMP Grow(SAFEARRAY** Values, LONG* Count, BSTR* Text) override;
    STDMETHODIMP Sum(SAFEARRAY** Values, LONG* Result) override;
    STDMETHODIMP WithDefaults(LONG First, SHORT Second, VARIANT_BOOL Third, FLOAT Fourth,
                              BSTR Fifth, ShapeConstants Sixth, BSTR* Result) override;
    STDMETHODIMP IsSame(ITestThing* Other, VARIANT_BOOL* Result) override;
    STDMETHODIMP Fail(LONG Status, BSTR Description) override;
    STDMETHODIMP MakeThing(ITestThing** Result) override;
    STDMETHODIMP Fire(SHORT Percent, BSTR Text) override;
    STDMETHODIMP FireLater(SHORT Percent, BSTR Text) override;
    STDMETHODIMP get_Item(LONG Index, BSTR* Value) override;
    STDMETHODIMP put_Item(LONG Index, BSTR Value) override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL Value) override;
    STDMETHODIMP get_Friend(ITestThing** Value) override;
    STDMETHODIMP put_Friend(ITestThing* Value) override;
    STDMETHODIMP putref_Friend(ITestThing* Value) override;
    STDMETHODIMP get_FriendBy(BSTR* Value) override;
    STDMETHODIMP get_Alive(LONG* Value) override;
    STDMETHODIMP put_Secret(LONG Value) override;

private:
    std::map<LONG, std::string> items_;
    VARIANT_BOOL enabled_ = VARIANT_FALSE;
    automation::ComPtr<ITestThing> friend_;
    std::string friendBy_;
    automation::ConnectionPoints points_;
    automation::ClassInformation classInformation_;
};

}  // namespace mavrin2::tests

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<tests::ITestThing>();
template <>
const EnumerationDescription& EnumerationOf<tests::ShapeConstants>();
}  // namespace mavrin2::automation
