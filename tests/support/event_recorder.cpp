#include "tests/support/event_recorder.h"

#include "control/interfaces/identifiers.h"

namespace mavrin2::tests {
namespace {

std::string TextOf(DISPID event, const DISPPARAMS& parameters) {
    const VARIANT* argument = parameters.cArgs == 1 ? parameters.rgvarg : nullptr;
    if (event == 6 && argument && argument->vt == VT_I2)
        return std::to_string(argument->iVal) + "%";
    if (event == 7 && parameters.cArgs == 0) return "position";
    if (event == 11 && parameters.cArgs == 0) return "end";
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
