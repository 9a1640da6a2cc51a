// The operations of the Transform object, each a whole edit of the document, beside SoX and
// soundstretch from file to file: processor time, since all of them use one thread.

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "automation/safe_array.h"
#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"

namespace mavrin2::bench {
namespace {

using interfaces::IMavrin2Transform;

constexpr int kRounds = 3;

// An array of numbers as the operations take it.
class Numbers {
public:
    explicit Numbers(const std::vector<float>& values) : array_(values.size()) {
        std::ranges::copy(values, automation::ArrayView<float>(array_.Get()).Elements().begin());
    }
    SAFEARRAY** Get() { return array_.Address(); }

private:
    automation::SafeArray<float> array_;
};

struct Case {
    const char* Task;
    std::function<void(IMavrin2Transform& transform)> Run;
    double Limit;
    std::vector<std::vector<std::string>> Commands;  // IN and OUT stand for the files
};

std::vector<Case> Cases() {
    const auto sox = [](const std::string& effect) {
        std::vector<std::string> command{"sox", "-D", "IN", "OUT"};
        for (std::size_t at = 0; at < effect.size();) {
            const std::size_t end = std::min(effect.find(' ', at), effect.size());
            command.push_back(effect.substr(at, end - at));
            at = end + 1;
        }
        return command;
    };
    static const std::vector<float> bands = {31.25, 62.5, 125,  250,  500,
                                             1000,  2000, 4000, 8000, 16000};
    std::string equalizer;
    for (const float band : bands)
        equalizer +=
            (equalizer.empty() ? "equalizer " : " equalizer ") + std::to_string(band) + " 1o 3";
    return {
        {"Amplify", [](auto& t) { t.Amplify(50); }, 0.4, {sox("vol 0.5")}},
        {"Fade", [](auto& t) { t.Fade(0, 100); }, 0.4, {sox("fade t 600")}},
        {"Normalize", [](auto& t) { t.Normalize(95, -1); }, 0.4, {sox("gain -n -0.5")}},
        {"Reverse", [](auto& t) { t.Reverse(); }, 0.4, {sox("reverse")}},
        {"LowPassFilter", [](auto& t) { t.LowPassFilter(4000, 1); }, 0.5, {sox("lowpass 4000")}},
        {"Compressor",
         [](auto& t) { t.Compressor(-20, 4, 50); },
         0.25,
         {sox("compand 0.05,0.05 -20,-20,0,-15")}},
        {"Expander",
         [](auto& t) { t.Expander(-30, 2, 50); },
         0.25,
         {sox("compand 0.05,0.05 -60,-90,-30,-30,0,0")}},
        {"Equalizer, 10 bands",
         [](auto& t) {
             t.Equalizer(Numbers(std::vector<float>(10, 3)).Get(), Numbers(bands).Get());
         },
         0.25,
         {sox(equalizer)}},
        {"FIRFilter, 511 taps",
         [](auto& t) {
             t.FIRFilter(Numbers({0, 4000, 4400, 22050}).Get(), Numbers({0, -120}).Get(),
                         Numbers({}).Get(), 511);
         },
         0.4,
         {sox("sinc -n 511 -4000")}},
        {"Reverb", [](auto& t) { t.Reverb(25, 40, 85, 80, 4000, 12); }, 0.4, {sox("reverb 50")}},
        {"Chorus, three voices",
         [](auto& t) { t.Chorus(50, 80, 0, 10, 0.5, 0); },
         0.4,
         {sox("chorus 0.5 0.9 50 0.4 0.25 2 -t 60 0.32 0.4 2.3 -t 40 0.3 0.3 1.3 -s")}},
        {"Flanger", [](auto& t) { t.Flanger(3, 100, 50, 80, 0.5, 0); }, 0.4, {sox("flanger")}},
        {"Phaser",
         [](auto& t) { t.Phaser(4, 100, 50); },
         0.4,
         {sox("phaser 0.8 0.74 3 0.4 0.5 -t")}},
        {"TimeStretch",
         [](auto& t) { t.TimeStretch(125); },
         1,
         {{"soundstretch", "IN", "OUT", "-tempo=-20"}, sox("tempo 0.8")}},
        {"PitchShift",
         [](auto& t) { t.PitchShift(125); },
         1,
         {{"soundstretch", "IN", "OUT", "-pitch=3.86"}, sox("pitch 386")}},
    };
}

}  // namespace

void PrintTransformFigures(const Folder& data) {
    const auto output = data / "out.wav";
    for (const Case& one : Cases()) {
        std::unique_ptr<Editor> editor;
        automation::ComPtr<IMavrin2Transform> transform;
        Action ours{"Mavrin2", [&] { one.Run(*transform); }};
        ours.Before = [&] {
            editor = std::make_unique<Editor>();
            editor->Open(data / "m10.wav");
            editor->SelectAll();
            editor->Control().get_Transform(transform.Put());
        };
        ours.After = [&] {
            transform.Reset();
            editor.reset();
        };
        std::vector<Action> others;
        for (std::vector<std::string> command : one.Commands) {
            for (std::string& word : command) {
                if (word == "IN") word = (data / "m10.wav").string();
                if (word == "OUT") word = output.string();
            }
            others.push_back(ProgramWriting(output, command));
        }
        PrintRatio(std::string(one.Task) + ", 10 min", ours, others, one.Limit, kRounds,
                   Clock::Processor);
    }
}

}  // namespace mavrin2::bench
