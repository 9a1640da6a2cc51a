#include "hosts/script/commands/sound_facts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kInspectorProgId = "KovDusoro2.Inspector";
constexpr std::int32_t kDocumentBits = 16;

std::string Whole(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.0f", value);
    return text;
}

std::string DamageOf(const SoundFacts& facts) {
    std::string text;
    const auto add = [&](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
    if (facts.DamagedBlocks > 0)
        add(std::to_string(facts.DamagedBlocks) +
            (facts.DamagedBlocks == 1 ? " part is" : " parts are") + " broken");
    const double present = facts.Decoded ? facts.DecodedFrames : facts.Frames;
    if (present < facts.StatedFrames)
        add("has " + Whole(present) + " of the " + Whole(facts.StatedFrames) +
            " frames that its header states");
    else if (facts.EndMissing)
        add("the end of the file is missing");
    if (facts.ChecksumDiffers && text.empty()) add("the sound does not match its checksum");
    return text;
}

}  // namespace

std::int64_t SoundFacts::DocumentFrames() const {
    return kMostDocumentBytes / (std::int64_t{2} * std::max(DocumentChannels(), 1));
}

std::vector<std::string> LossesOf(const SoundFacts& facts) {
    std::vector<std::string> losses;
    if (std::max(facts.Frames, facts.DecodedFrames) > static_cast<double>(facts.DocumentFrames()))
        losses.push_back("longer than a document holds: cut at " +
                         DurationText(facts.DocumentFrames(), facts.Rate) +
                         " (2 GiB of 16-bit samples)");
    if (const std::string damage = DamageOf(facts); !damage.empty())
        losses.push_back("damaged: " + damage);
    if (facts.Channels > 2)
        losses.push_back(std::to_string(facts.Channels) + " channels mixed down to 2");
    if (facts.Bits > kDocumentBits)
        losses.push_back(std::to_string(facts.Bits) + " bits rounded to 16");
    if (facts.LimitedSamples > 0)
        losses.push_back(Whole(facts.LimitedSamples) + " samples limited to full scale");
    return losses;
}

SoundInspection::SoundInspection(const std::string& file)
    : inspector_(binding::CreateObject(kInspectorProgId)) {
    inspector_.Call("Inspect", file);
}

void SoundInspection::Decode(const std::function<bool()>& cancelled) {
    // Of plain samples that fit the document, with a length, there is nothing to find.
    if (inspector_.Number("PlainPcm") != 0 && inspector_.Number("BitsPerSample") <= kDocumentBits &&
        inspector_.Real("StatedFrames") > 0) {
        frames_ = inspector_.Real("Frames");
        decoded_ = true;
        return;
    }
    constexpr std::int32_t kBlock = 1 << 16;
    while (!cancelled()) {
        const std::int32_t frames = inspector_.Call("Skip", kBlock).lVal;
        frames_ += frames;
        if (frames < kBlock) {
            decoded_ = true;
            return;
        }
    }
}

SoundFacts SoundInspection::Facts() const {
    SoundFacts facts;
    facts.Format = inspector_.Text("FormatText");
    facts.Rate = inspector_.Number("Frequency");
    facts.Channels = inspector_.Number("Channels");
    facts.Bits = inspector_.Number("BitsPerSample");
    facts.Frames = inspector_.Real("Frames");
    facts.StatedFrames = inspector_.Real("StatedFrames");
    facts.Decoded = decoded_;
    facts.DecodedFrames = frames_;
    facts.LimitedSamples = inspector_.Real("LimitedSamples");
    facts.DamagedBlocks = inspector_.Number("DamagedBlocks");
    facts.ChecksumDiffers = inspector_.Number("ChecksumDiffers") != 0;
    facts.EndMissing = inspector_.Number("EndMissing") != 0;
    return facts;
}

}  // namespace mavrin2::script
