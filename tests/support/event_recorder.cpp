#include "tests/support/event_recorder.h"

#include "control/interfaces/identifiers.h"

namespace mavrin2::tests {
namespace {

struct PlainEvent {
    DISPID Id;
    const char* Name;
    std::vector<VARTYPE> Arguments;
};

// "name", or "name(1,2)" with whole numbers.
std::string TextOf(const PlainEvent& event, const DISPPARAMS& parameters) {
    if (parameters.cArgs != event.Arguments.size()) return "?";
    std::string text;
    for (std::size_t i = 0; i < event.Arguments.size(); ++i) {
        const VARIANT& argument = parameters.rgvarg[event.Arguments.size() - 1 - i];
        if (argument.vt != event.Arguments[i]) return "?";
        text += (i == 0 ? "(" : ",") +
                std::to_string(argument.vt == VT_I2 ? argument.iVal : argument.lVal);
    }
    return event.Name + text + (text.empty() ? "" : ")");
}

std::string TextOf(DISPID event, const DISPPARAMS& parameters) {
    static const std::vector<VARTYPE> place = {VT_I4, VT_I4, VT_I2, VT_I2};
    static const PlainEvent events[] = {
        {1, "double", {}},       {2, "down", place},           {3, "up", place},
        {4, "move", place},      {5, "meter", {VT_I4, VT_I4}}, {8, "endplay", {}},
        {9, "playposition", {}}, {14, "gain", {VT_I4}},        {7, "position", {}},
        {11, "end", {}},         {12, "click", {VT_I4}},       {13, "new", {VT_I4}},
        {16, "scale x", {}},     {17, "scale y", {}},          {18, "marker", {VT_I4}}};
    for (const PlainEvent& plain : events)
        if (plain.Id == event) return TextOf(plain, parameters);
    const VARIANT* argument = parameters.cArgs == 1 ? parameters.rgvarg : nullptr;
    if (event == 6 && argument && argument->vt == VT_I2)
        return std::to_string(argument->iVal) + "%";
    return "?";
}

}  // namespace

void EventRecorder::Connect(IUnknown* object) {
    const auto container = automation::ComPtr<IUnknown>(object).As<IConnectionPointContainer>();
    automation::ComPtr<IConnectionPoint> point;
    container->FindConnectionPoint(interfaces::DIID_IMavrin2Events, point.Put());
    DWORD cookie = 0;
    point->Advise(this, &cookie);
}

STDMETHODIMP EventRecorder::Invoke(DISPID event, REFIID reserved, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT*) {
    const bool asAgreed = IsEqualGUID(reserved, IID_NULL) && locale == 1024 &&
                          flags == DISPATCH_METHOD && parameters && parameters->cNamedArgs == 0 &&
                          result && !exception;
    if (!Log.empty()) Log += ' ';
    Log += asAgreed ? TextOf(event, *parameters) : "?";
    if (--countdown_ == 0) std::exchange(action_, {})();
    return S_OK;
}

}  // namespace mavrin2::tests
