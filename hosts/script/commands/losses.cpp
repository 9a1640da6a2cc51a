#include "hosts/script/commands/losses.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>

#include "hosts/script/commands/cd_drives.h"
#include "hosts/script/commands/command.h"
#include "platform/interrupt.h"

namespace mavrin2::script {
namespace {

// Checks a sound file beside the editor, which reads it at the same time: what the editor's own
// decoder finds stays between it and the control.
class BackgroundCheck {
public:
    explicit BackgroundCheck(const std::string& file) : thread_([this, file] { Run(file); }) {}
    BackgroundCheck(const BackgroundCheck&) = delete;
    BackgroundCheck& operator=(const BackgroundCheck&) = delete;
    ~BackgroundCheck() {
        cancelled_ = true;
        if (thread_.joinable()) thread_.join();
    }

    // Nothing if the companion cannot say.
    std::optional<SoundFacts> Await() {
        thread_.join();
        return std::move(facts_);
    }

private:
    void Run(const std::string& file) {
        try {
            SoundInspection inspection(file);
            inspection.Decode([this] { return cancelled_ || platform::Interrupted(); });
            facts_ = inspection.Facts();
        } catch (...) {  // the editor's own failure is the one to report
        }
    }

    std::atomic<bool> cancelled_ = false;
    std::optional<SoundFacts> facts_;
    std::thread thread_;
};

}  // namespace

void Losses::Open(Editor& editor, const InputFile& file) {
    const auto facts = Read(file, [&] { editor.Open(file); });
    if (facts) CompareLength(file, *facts, editor.Frames(), 1);
}

void Losses::Append(Editor& editor, const InputFile& file) {
    const std::int32_t before = editor.Frames();
    const auto facts = Read(file, [&] { editor.Append(file); });
    if (facts && facts->Rate > 0)
        CompareLength(file, *facts, editor.Frames() - before,
                      static_cast<double>(editor.Rate()) / facts->Rate);
    SayLimited(editor, file.Name(), kByRateChange);
}

std::optional<SoundFacts> Losses::Read(const InputFile& file, const std::function<void()>& read) {
    if (IsCdTrack(file.Path())) {
        read();
        return std::nullopt;
    }
    BackgroundCheck check(file.Path());
    read();
    auto facts = check.Await();
    if (platform::Interrupted()) throw Interruption();
    if (facts)
        for (const std::string& loss : LossesOf(*facts))
            Say(file.Name(), loss);
    return facts;
}

void Losses::CompareLength(const InputFile& file, const SoundFacts& facts, std::int32_t frames,
                           double ratio) {
    if (!facts.Decoded) return;
    const auto wanted = static_cast<std::int64_t>(
        ratio * std::min(facts.DecodedFrames, static_cast<double>(facts.DocumentFrames())));
    // One may have been rounded away.
    if (frames + 1 < wanted)
        Say(file.Name(), "only " + std::to_string(frames) + " of " + std::to_string(wanted) +
                             " frames could be read");
}

void Losses::Say(const std::string& file, const std::string& loss) {
    const std::string line = Printable(file) + ": " + loss;
    if (said_.insert(line).second) std::fprintf(stderr, "mavrin2: %s\n", line.c_str());
}

void Losses::SayLimited(const Editor& editor, const std::string& file, const std::string& where) {
    const std::int64_t limited = editor.LimitedSamples();
    if (limited > limited_)
        Say(file, std::to_string(limited - limited_) + " samples limited to full scale " + where);
    limited_ = limited;
}

void Losses::Refuse(const std::string& output) const {
    if (strict_ && !said_.empty()) throw Failure(output, "not written, because of --strict");
}

}  // namespace mavrin2::script
