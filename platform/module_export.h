#pragma once

#include "platform/automation.h"

// How an entry point of a module is declared: by its plain name, visible to the system.
#ifdef _WIN32
#define MAVRIN2_MODULE_EXPORT(type) extern "C" type STDMETHODCALLTYPE
#else
#define MAVRIN2_MODULE_EXPORT(type) \
    extern "C" __attribute__((visibility("default"))) type STDMETHODCALLTYPE
#endif
