#pragma once

#include "hosts/script/command.h"

namespace mavrin2::hosts::script {

extern const Command kConvertCommand;

}  // namespace mavrin2::hosts::script
