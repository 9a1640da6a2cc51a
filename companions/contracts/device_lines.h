#pragma once

#include "automation/interface_builder.h"
#include "platform/automation.h"

namespace mavrin2::contracts {

// The mixer lines of the selected device, which both device companions have at some place of their
// virtual tables: after the members of `Preceding`. Lines are counted from 1. Numbers of lines and
// values are limited to what there is.
//
// A line is a port of the device (headphones, line in …), or "Master" where it has none. The device
// has one volume, whichever of its ports is in use. The controls of a line are the volumes of the
// device's channels.
template <class Preceding>
struct DeviceLineMembers : public Preceding {
    virtual HRESULT STDMETHODCALLTYPE get_LineCount(SHORT* count) = 0;
    // Of the selected line. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_LineName(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LineNum(SHORT* number) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LineNum(SHORT number) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LineHasVolume(VARIANT_BOOL* has) = 0;
    // Percent of the device's slider, 0 … 100.
    virtual HRESULT STDMETHODCALLTYPE get_LineVolume(LONG* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LineVolume(LONG percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LineHasBalance(VARIANT_BOOL* has) = 0;
    // -100 (left only) … 100 (right only).
    virtual HRESULT STDMETHODCALLTYPE get_LineBalance(SHORT* balance) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LineBalance(SHORT balance) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LineHasSwitch(VARIANT_BOOL* has) = 0;
    // Of an output line its mute: 1 when the port is not in use or muted, 0 puts it into use. Of an
    // input line the opposite: 1 when the port is in use and not muted.
    virtual HRESULT STDMETHODCALLTYPE get_LineSwitch(VARIANT_BOOL* on) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LineSwitch(VARIANT_BOOL on) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LineControlCount(SHORT* count) = 0;
    // `index` from 1. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_LineControlName(SHORT index, BSTR* name) = 0;
    // Percent, 0 … 100, as a 32-bit integer; put converts what it gets.
    virtual HRESULT STDMETHODCALLTYPE get_LineControlValue(SHORT index, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LineControlValue(SHORT index, VARIANT value) = 0;
};

// Describes these members of `I`, with twelve dispatch identifiers from `first` on.
template <class I>
automation::InterfaceBuilder<I>& DescribeLines(automation::InterfaceBuilder<I>& builder,
                                               DISPID first) {
    using automation::In;
    return builder.template Get<&I::get_LineCount>(first, "LineCount", "Lines of the device")
        .template Get<&I::get_LineName>(first + 1, "LineName", "Name of the selected line")
        .template Property<&I::get_LineNum, &I::put_LineNum>(first + 2, "LineNum",
                                                             "Selected line, from 1")
        .template GetBoolean<&I::get_LineHasVolume>(first + 3, "LineHasVolume",
                                                    "Whether the line has a volume")
        .template Property<&I::get_LineVolume, &I::put_LineVolume>(
            first + 4, "LineVolume", "Volume of the line in percent, 0 to 100")
        .template GetBoolean<&I::get_LineHasBalance>(first + 5, "LineHasBalance",
                                                     "Whether the line has a balance")
        .template Property<&I::get_LineBalance, &I::put_LineBalance>(
            first + 6, "LineBalance", "-100 (left only) to 100 (right only)")
        .template GetBoolean<&I::get_LineHasSwitch>(first + 7, "LineHasSwitch",
                                                    "Whether the line can be switched")
        .template BooleanProperty<&I::get_LineSwitch, &I::put_LineSwitch>(
            first + 8, "LineSwitch", "Output: whether it is muted; input: whether it is recorded")
        .template Get<&I::get_LineControlCount>(first + 9, "LineControlCount",
                                                "Further controls of the line")
        .template Get<&I::get_LineControlName>(first + 10, "LineControlName",
                                               "Name of a control, from 1", In("index"))
        .template Property<&I::get_LineControlValue, &I::put_LineControlValue>(
            first + 11, "LineControlValue", "Value of a control in percent, 0 to 100", In("index"));
}

}  // namespace mavrin2::contracts
