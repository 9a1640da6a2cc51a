#include "hosts/script/commands/input_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string_view>
#include <system_error>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "platform/ports.h"
#include "platform/standard_streams.h"

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

constexpr const char* kStandardInput = "standard input";

// Passes standard input on in blocks.
void ReadAll(const std::function<void(std::span<const std::byte>)>& take) {
    constexpr std::size_t kBlock = std::size_t{1} << 20;
    std::vector<std::byte> block(kBlock);
    std::error_code error;
    while (const std::size_t count = platform::ReadStandardInput(block, error))
        take(std::span(block).first(count));
    if (error == std::errc::operation_canceled) throw Interruption();
    if (error) throw Failure(kStandardInput, error.message());
}

bool IsText(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x20 ? byte != 0x7F : c == '\n' || c == '\r' || c == '\t';
    });
}

}  // namespace

InputFile::InputFile(const std::string& operand) : name_(operand), path_(operand) {
    if (operand == kStandardStream) CopyStandardInput();
}

void InputFile::CopyStandardInput() {
    const std::string folder = TemporaryFolder();
    name_ = kStandardInput;
    const auto failure = [&] {
        return Failure(name_,
                       "cannot be copied to the temporary folder " + folder + SpaceHint(folder));
    };
    std::error_code error;
    copy_ = platform::SystemReplacementFiles()->Stage(folder + "input", error);
    if (!copy_) throw failure();
    path_ = copy_->Path().string();
    const auto file = platform::SystemPorts().Files->Create(path_);
    if (!file) throw failure();
    std::int64_t length = 0;
    ReadAll([&](std::span<const std::byte> block) {
        if (!file->Write(length, block)) throw failure();
        length += static_cast<std::int64_t>(block.size());
    });
}

void CheckStandardInput(std::span<const std::string> operands) {
    if (std::ranges::count(operands, kStandardStream) > 1)
        throw UsageError("standard input, -, can be given only once");
}

std::vector<InputFile> InputFilesOf(std::span<const std::string> operands) {
    CheckStandardInput(operands);
    std::vector<InputFile> files;
    for (const std::string& operand : operands)
        files.emplace_back(operand);
    return files;
}

std::string TextOfStandardInput() {
    std::string text;
    ReadAll([&](std::span<const std::byte> block) {
        text.append(reinterpret_cast<const char*>(block.data()), block.size());
    });
    return text;
}

std::string TemporaryFolder() {
    std::string folder = platform::SystemPorts().Files->TemporaryFolder().string();
    if (folder.empty()) throw Failure("no temporary folder: TMPDIR and /tmp cannot be written to");
    return folder;
}

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
    if (error) return "";
    // What did not fit may have been removed by now.
    return space.available < kLittle
               ? ": no space is left"
               : ", where " + std::to_string(space.available / kLittle) + " MB are free";
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
