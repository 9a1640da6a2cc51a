#pragma once

// The published binary contract of COM and OLE automation, as far as the component uses it. All
// names are in the global namespace and spelled as published, so that sources compile unchanged
// against the system's headers on Windows.

#include "platform/linux/automation/controls.h"
#include "platform/linux/automation/data_transfer.h"
#include "platform/linux/automation/embedding.h"
#include "platform/linux/automation/fonts.h"
#include "platform/linux/automation/functions.h"
#include "platform/linux/automation/in_place.h"
#include "platform/linux/automation/interfaces.h"
#include "platform/linux/automation/pictures.h"
#include "platform/linux/automation/status.h"
#include "platform/linux/automation/storage.h"
#include "platform/linux/automation/type_records.h"
#include "platform/linux/automation/types.h"
#include "platform/linux/automation/variant.h"
#include "platform/linux/automation/window_types.h"
