#pragma once

// The system's interface to sound devices. Its drivers' messages are in the second header.
#include "platform/automation.h"
// After windows.h, which they build on.
#include <mmsystem.h>
// After mmsystem.h.
#include <mmddk.h>
