#pragma once

#include "automation/com_ptr.h"
#include "automation/module.h"

namespace mavrin2::automation {

// The standard class factory of one class.
ComPtr<IClassFactory> MakeClassObject(const ClassEntry& entry);

}  // namespace mavrin2::automation
