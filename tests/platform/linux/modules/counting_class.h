#pragma once

#include "platform/automation.h"

// The class that the test module knows. Its object is no more than its identity.
inline constexpr CLSID CLSID_Counting = {
    0x5D0B7B0A, 0x3A3C, 0x4B9E, {0x91, 0x27, 0x6E, 0x0D, 0x1C, 0x5A, 0x77, 0x01}};
