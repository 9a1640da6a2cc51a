#include "hosts/script/commands/input_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {

namespace {

struct Kind {
    std::string_view Beginning;
    const char* Name;
};

constexpr Kind kKinds[] = {{"\x89PNG", "a PNG picture"},
                           {"\xFF\xD8\xFF", "a JPEG picture"},
                           {"GIF8", "a GIF picture"},
                           {"%PDF", "a PDF document"},
                           {"PK\x03\x04", "a ZIP archive"},
                           {"\x1F\x8B", "a gzip archive"},
                           {"7z\xBC\xAF", "a 7z archive"},
                           {"Rar!", "a RAR archive"},
                           {"\x7F"
                            "ELF",
                            "a program"},
                           {"MZ", "a program"},
                           {"MThd", "MIDI, which has notes but no sound"},
                           {"SQLite", "a database"}};

bool IsText(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x20 ? byte != 0x7F : c == '\n' || c == '\r' || c == '\t';
    });
}

}  // namespace

std::string AppearanceOf(const std::string& file) {
    std::array<char, 512> bytes{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), bytes.size());
    const std::string_view head(bytes.data(), static_cast<std::size_t>(stream.gcount()));
    if (head.empty()) return "it is empty";
    for (const Kind& kind : kKinds)
        if (head.starts_with(kind.Beginning)) return std::string("it looks like ") + kind.Name;
    return IsText(head) ? "it looks like text" : "";
}

std::string SpaceHint(const std::string& folder) {
    constexpr std::uintmax_t kLittle = 1 << 20;
    std::error_code error;
    const auto space = std::filesystem::space(folder.empty() ? "." : folder, error);
    return !error && space.available < kLittle ? ": no space is left" : "";
}

// The system's reason is clearer than a sound library's.
void CheckReadable(const std::string& file) {
    if (IsCdTrack(file))
        throw Failure(file, "is a track of a CD; try `mavrin2 convert` to make a file of it first");
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) throw Failure(file, error.message());
    if (std::filesystem::is_directory(status))
        throw Failure(file, std::generic_category().message(EISDIR));
    // Opening a pipe would wait.
    if (!std::filesystem::is_regular_file(status)) throw Failure(file, "not a regular file");
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(std::fopen(file.c_str(), "rb"),
                                                                 &std::fclose);
    if (!opened) throw Failure(file, std::generic_category().message(errno));
}

}  // namespace mavrin2::script
