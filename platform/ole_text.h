#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/automation.h"

namespace mavrin2::platform {

// Between the texts of automation, UTF-16, and UTF-8.
//
// Names of files need not be UTF-8 on Linux, and must come back as they went. So a byte that is no
// part of a UTF-8 character becomes the lone surrogate U+DC00 + byte, which stands for that byte on
// the way back; PEP 383 calls this "surrogateescape". Other lone surrogates become U+FFFD. Every
// sequence of bytes survives the way to UTF-16 and back.
std::string Utf8Of(std::basic_string_view<OLECHAR> text);
std::basic_string<OLECHAR> OleTextOf(std::string_view utf8);

// For what others read as UTF-8: every lone surrogate becomes U+FFFD.
std::string WellFormedUtf8Of(std::basic_string_view<OLECHAR> text);

// Between texts and the names of files in the system's own form. Every name survives.
std::filesystem::path PathOf(std::basic_string_view<OLECHAR> text);
std::basic_string<OLECHAR> OleTextOfPath(const std::filesystem::path& path);

}  // namespace mavrin2::platform
