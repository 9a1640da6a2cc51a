#pragma once

#include <string>

#include "platform/automation.h"

namespace mavrin2::script {

// A sentence for a failing status of the platform: what a caller is told when the component itself
// gave no description.
std::string StatusText(HRESULT status);

// As people write a status: 0x80040309.
std::string StatusNumber(HRESULT status);

}  // namespace mavrin2::script
