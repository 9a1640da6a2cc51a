#pragma once

#include "companions/contracts/lame_settings_interface.h"
#include "control/interfaces/identifiers.h"
#include "control/view/style.h"

namespace mavrin2::objects {

// What the control needs from its own objects beyond their published interfaces. Objects made by a
// host do not implement them. The settings belong to the object.
struct IColorSettings : public IUnknown {
    static constexpr IID Id = interfaces::ControlId(0x8001);
    virtual const view::ColorSettings& STDMETHODCALLTYPE Get() = 0;
};

struct IScaleSettings : public IUnknown {
    static constexpr IID Id = interfaces::ControlId(0x8002);
    // May be changed; nothing is drawn for it.
    virtual view::ScaleSettings& STDMETHODCALLTYPE Get() = 0;
};

struct ILameCompanion : public IUnknown {
    static constexpr IID Id = interfaces::ControlId(0x8003);
    // The settings that the encoder reads; null when they could not be created. Not counted.
    virtual contracts::ILameSettings* STDMETHODCALLTYPE Get() = 0;
};

}  // namespace mavrin2::objects
