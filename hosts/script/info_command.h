#pragma once

#include "hosts/script/command.h"

namespace mavrin2::hosts::script {

extern const Command kInfoCommand;

}  // namespace mavrin2::hosts::script
