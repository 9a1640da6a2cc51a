#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mavrin2::ontiva {

// The numbered genres of ID3v1, with the numbers that players added.
inline constexpr std::int16_t kNoGenre = 255;

// Empty for a number without a genre.
std::string_view GenreName(std::int16_t number);
// kNoGenre for a name that has no number. Letters of either case are the same.
std::int16_t GenreNumber(std::string_view name);

}  // namespace mavrin2::ontiva
