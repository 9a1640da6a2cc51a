#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/losses.h"
#include "hosts/script/commands/output_file.h"

namespace mavrin2::script {

inline constexpr std::string_view kRate = "--rate";
inline constexpr std::string_view kChannels = "--channels";
inline constexpr std::string_view kFormat = "--format";

// The number that an option gives. Throws UsageError, which names what is `expected`, for anything
// that is not between `least` and `most`.
std::optional<std::int32_t> NumberOf(const CommandLine& line, std::string_view option,
                                     std::int32_t least, std::int32_t most, const char* expected);

// The sample rate and channel count that a command line asks for, if any.
class SampleFormat {
public:
    // From --rate and --channels. Throws UsageError.
    explicit SampleFormat(const CommandLine& line);

    // Converts the document, and drops its selection. What is not given stays as it is.
    void ApplyTo(Editor& editor) const;
    bool IsGiven() const { return rate_ || channels_; }
    // Whether that would change the document.
    bool Changes(const Editor& editor) const;

    // What is given, or else these.
    std::int32_t RateOr(std::int32_t rate) const { return rate_.value_or(rate); }
    std::int32_t ChannelsOr(std::int32_t channels) const { return channels_.value_or(channels); }

    // Takes from the document what is not given.
    void CompleteFrom(const Editor& editor);

private:
    std::optional<std::int32_t> rate_;      // hertz
    std::optional<std::int32_t> channels_;  // 1 or 2
};

// What a command line says of its output.
class OutputTarget {
public:
    // `operand` is the name of a file or `-`, for which --format gives an extension. With
    // `manyFormats` --format may also be a format with its values, for either. Throws UsageError.
    OutputTarget(const std::string& operand, const CommandLine& line, bool manyFormats = false);

    bool IsStandardOutput() const { return operand_ == kStandardStream; }
    const std::string& Operand() const { return operand_; }
    // As messages call it.
    std::string Name() const { return IsStandardOutput() ? "standard output" : operand_; }
    // Chooses the format: ".flac", in lower case. Any, or empty, where --format chooses it.
    const std::string& Extension() const { return extension_; }
    // The value of --format, if it is a format with its values.
    const std::optional<std::string>& Format() const { return format_; }

private:
    void ChooseExtension(const CommandLine& line, bool manyFormats);

    std::string operand_;
    std::string extension_;
    std::optional<std::string> format_;
};

// A sound file that a command writes.
class SoundOutput {
public:
    // Throws Failure if the file cannot be written or is one of the inputs.
    SoundOutput(const OutputTarget& target, std::span<const std::string> inputs);

    // The file is to have a format that is described like this one, at any rate. Write throws
    // Failure, and keeps an older file, where the name cannot have it.
    void Expect(const std::string& format);

    // What happens where the file cannot have the rate or the channels of the document: it is
    // written with the nearest that it has, which is said, or it is not written.
    enum class Mismatch : std::uint8_t { Say, Refuse, Accept };
    void On(Mismatch mismatch) { mismatch_ = mismatch; }

    // Writes the document, or its selection, and replaces an older file of that name. Throws
    // Failure also where the losses forbid it.
    void Write(Editor& editor, bool selection, Losses& losses);

private:
    void CompareWith(const Editor& editor, Losses& losses) const;

    std::string name_;
    Mismatch mismatch_ = Mismatch::Say;
    OutputFile file_;
    std::optional<std::string> expected_;  // the name of a format
};

}  // namespace mavrin2::script
