#include "control/objects/position.h"

#include "control/signal/mul_div.h"

namespace mavrin2::objects {

using editor::Positions;

namespace {

// The rate that positions are counted in before any document has set one.
constexpr std::int32_t kDefaultRate = 8000;

}  // namespace

STDMETHODIMP CMavrin2Position::SecToSamples(LONG Millisec, LONG* Samples) {
    return positions_.Read(
        Samples, [&](Positions& p) { return p.SecToSamples(Millisec); },
        LONG{signal::MulDiv(Millisec, kDefaultRate, 1000)});
}

STDMETHODIMP CMavrin2Position::SamplesToSec(LONG Samples, LONG* Millisec) {
    return positions_.Read(
        Millisec, [&](Positions& p) { return p.SamplesToSec(Samples); },
        LONG{signal::MulDiv(Samples, 1000, kDefaultRate)});
}

STDMETHODIMP CMavrin2Position::GoToMarker(LONG Num) {
    return positions_.Do([&](Positions& p) { p.GoToMarker(Num); });
}

STDMETHODIMP CMavrin2Position::get_StartSelect(LONG* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.StartSelect(); }, LONG{0});
}

STDMETHODIMP CMavrin2Position::put_StartSelect(LONG Value) {
    return positions_.Do([&](Positions& p) { p.SetStartSelect(Value); });
}

STDMETHODIMP CMavrin2Position::get_EndSelect(LONG* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.EndSelect(); }, LONG{0});
}

STDMETHODIMP CMavrin2Position::put_EndSelect(LONG Value) {
    return positions_.Do([&](Positions& p) { p.SetEndSelect(Value); });
}

STDMETHODIMP CMavrin2Position::get_StartView(LONG* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.StartView(); }, LONG{0});
}

STDMETHODIMP CMavrin2Position::put_StartView(LONG Value) {
    return positions_.Do([&](Positions& p) { p.SetStartView(Value); });
}

STDMETHODIMP CMavrin2Position::get_EndView(LONG* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.EndView(); }, LONG{0});
}

STDMETHODIMP CMavrin2Position::put_EndView(LONG Value) {
    return positions_.Do([&](Positions& p) { p.SetEndView(Value); });
}

STDMETHODIMP CMavrin2Position::get_Selected(VARIANT_BOOL* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.Selected(); }, VARIANT_BOOL{0});
}

STDMETHODIMP CMavrin2Position::put_Selected(VARIANT_BOOL Value) {
    return positions_.Do([&](Positions& p) { p.SetSelected(Value); });
}

STDMETHODIMP CMavrin2Position::get_TotalSamples(LONG* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.TotalSamples(); }, LONG{0});
}

STDMETHODIMP CMavrin2Position::get_CurrentPosition(LONG* Value) {
    return positions_.Read(
        Value, [](Positions& p) { return p.CurrentPosition(); }, LONG{0});
}

STDMETHODIMP CMavrin2Position::put_CurrentPosition(LONG Value) {
    return positions_.Do([&](Positions& p) { p.SetCurrentPosition(Value); });
}

}  // namespace mavrin2::objects
