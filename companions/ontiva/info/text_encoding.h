#pragma once

#include <string>
#include <string_view>

namespace mavrin2::ontiva {

bool IsUtf8(std::string_view bytes);

// A text in a chunk, which ends at a zero or with the bytes: UTF-8 if that is what it is, otherwise
// the Western code page that older programs write.
std::string TextOf(std::string_view bytes);

// As much of a UTF-8 text as fits into so many bytes, without half a character.
std::string_view Cut(std::string_view utf8, std::size_t bytes);

}  // namespace mavrin2::ontiva
