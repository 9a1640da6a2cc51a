#pragma once

#include "hosts/script/commands/command.h"

namespace mavrin2::script {

extern const Command kRunCommand;

}  // namespace mavrin2::script
