#pragma once

#include "hosts/script/commands/command.h"

namespace mavrin2::script {

extern const Command kPictureCommand;

}  // namespace mavrin2::script
