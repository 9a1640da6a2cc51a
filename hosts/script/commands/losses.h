#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_facts.h"

namespace mavrin2::script {

inline constexpr std::string_view kStrict = "--strict";
// Where samples were limited.
inline constexpr const char* kByRateChange = "by the change of rate";

// What the result of a command lacks of its sources. Each loss is a line on standard error.
class Losses {
public:
    // From --strict, with which no output is kept that lacks anything.
    explicit Losses(const CommandLine& line) : strict_(line.Has(kStrict)) {}

    // Opens a sound file in the editor, or adds it to the document, and finds what gets lost on the
    // way. Throws what the editor throws.
    void Open(Editor& editor, const InputFile& file);
    void Append(Editor& editor, const InputFile& file);

    // Each text is said once of a file.
    void Say(const std::string& file, const std::string& loss);

    // Says how many samples the editor has limited since the last call: `where` is "in the mix".
    void SayLimited(const Editor& editor, const std::string& file, const std::string& where);

    // Throws Failure if an output of that name is not to be kept.
    void Refuse(const std::string& output) const;

private:
    // `read` is done beside the check. The facts are empty where there is nothing to ask.
    std::optional<SoundFacts> Read(const InputFile& file, const std::function<void()>& read);

    // Says so where `frames` are fewer than those of the file times `ratio`, that of the document's
    // sample rate to the file's.
    void CompareLength(const InputFile& file, const SoundFacts& facts, std::int32_t frames,
                       double ratio);

    bool strict_;
    std::set<std::string> said_;
    std::int64_t limited_ = 0;  // samples, as far as it has been said
};

}  // namespace mavrin2::script
