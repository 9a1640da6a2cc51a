#pragma once

#include <string>
#include <string_view>

namespace mavrin2::script {

// A name as a message or a list shows it: control characters, which could steer a terminal or break
// a line, as \n, \t or \x1B.
std::string Printable(std::string_view name);

// A text between quotes, as JSON has it. Bytes that are not UTF-8 become U+FFFD.
std::string JsonText(std::string_view text);

}  // namespace mavrin2::script
