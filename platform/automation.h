#pragma once

// COM and OLE automation by their own names: the system's headers on Windows, and a restatement of
// the part that the component uses elsewhere. Names and layouts are the same, so that one source
// compiles against either.

#ifdef _WIN32
#include <windows.h>
// After windows.h, which they build on.
#include <oaidl.h>
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>
#else
#include "platform/linux/automation/automation.h"
#endif
