#pragma once

#include "platform/pointer.h"

namespace mavrin2::view {

// The pointers that the control draws itself, 32 by 32 pixels in black and white.
const platform::Pointer& LeftChannelPointer();
const platform::Pointer& RightChannelPointer();
const platform::Pointer& GrabPointer();
const platform::Pointer& MarkerZonePointer();

}  // namespace mavrin2::view
