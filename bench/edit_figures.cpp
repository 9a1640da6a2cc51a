#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"

namespace mavrin2::bench {
namespace {

constexpr int kRounds = 7;

// A line of /proc/self/status, in MiB.
double Memory(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name + ":")) return std::stod(line.substr(name.size() + 1)) / 1024;
    return 0;
}

// Forgets the highest mark of resident memory.
void ResetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

void PrintDeleteRatio(const Folder& data) {
    std::unique_ptr<Editor> editor;
    const Folder copy = data / "copy.tmp";
    Action ours{"Mavrin2", [&] { editor->DeleteSelect(); },
                [&] {
                    editor = std::make_unique<Editor>();
                    editor->Open(data / "m60.wav");
                    editor->SelectSecondInTheMiddle();
                },
                [&] { editor.reset(); }};
    // The document's file and the WAV file differ in 14 bytes of header.
    PrintRatio("DeleteSelect, 1 s of 60 min", ours,
               {ProgramWriting(copy, {"cp", (data / "m60.wav").string(), copy.string()})}, 1.45,
               kRounds);
}

// Ten minutes pasted in the middle of sixty, beside copying the file that results.
void PrintPasteRatio(const Folder& data) {
    const Folder copy = data / "copy.tmp";
    const Folder pasted = data / "pasted.tmp";
    std::unique_ptr<Editor> editor;
    const auto prepare = [&] {
        editor = std::make_unique<Editor>();
        editor->Open(data / "m10.wav");
        editor->SelectAll();
        editor->Control().Copy();
        editor->Open(data / "m60.wav");
        editor->SelectSecondInTheMiddle();
    };
    prepare();
    editor->Control().Paste();
    std::filesystem::copy_file(editor->WorkFile(), pasted);
    PrintRatio("Paste, 10 min into 60 min",
               {"Mavrin2", [&] { editor->Control().Paste(); }, prepare, [&] { editor.reset(); }},
               {ProgramWriting(copy, {"cp", pasted.string(), copy.string()})}, 1.2, kRounds);
    std::filesystem::remove(pasted);
}

void PrintConversion(const Folder& data, const std::string& sound, LONG rate, LONG channels,
                     const std::string& quality, double limit) {
    const Folder out = data / "converted.wav";
    std::unique_ptr<Editor> editor;
    PrintRatio(
        "ConvertSampleType, " + sound + " to " + std::to_string(rate) + " Hz",
        {"Mavrin2",
         [&] {
             editor->Control().ConvertSampleType(
                 static_cast<interfaces::FrequencyConstants>(rate),
                 static_cast<interfaces::ChannelsConstants>(channels));
         },
         [&] {
             editor = std::make_unique<Editor>();
             editor->Open(data / sound);
         },
         [&] { editor.reset(); }},
        {ProgramWriting(out, {"sox", "-D", (data / sound).string(), out.string(), "channels",
                              std::to_string(channels), "rate", quality, std::to_string(rate)})},
        limit, kRounds);
}

void PrintMp3(const Folder& data) {
    const Folder out = data / "saved.tmp.mp3";
    std::unique_ptr<Editor> editor;
    PrintRatio("Save of 10 min as MP3, 192 kbit/s",
               {"Mavrin2", [&] { editor->Save(out); },
                [&] {
                    editor = std::make_unique<Editor>();
                    editor->Open(data / "m10.wav");
                },
                [&] {
                    editor.reset();
                    std::filesystem::remove(out);
                }},
               {ProgramWriting(out, {"lame", "--quiet", "-b", "192", "-q", "5", "-m", "j",
                                     (data / "m10.wav").string(), out.string()})},
               1.05, 3, Clock::Processor);
}

void PrintMemory(const Folder& data) {
    Editor editor;
    for (const char* name : {"small.wav", "small.flac", "small.mp3", "small.ogg"}) {
        editor.Open(data / name);
        editor.Save(data / "saved.tmp.mp3");
        editor.Save(data / "saved.tmp.ogg");
    }
    std::filesystem::remove(data / "saved.tmp.mp3");
    std::filesystem::remove(data / "saved.tmp.ogg");
    editor.Open(data / "m60.wav");
    editor.SelectSecondInTheMiddle();
    const double before = Memory("VmRSS");
    ResetPeak();
    editor.DeleteSelect();
    PrintValue("Memory while deleting, all libraries loaded", Memory("VmHWM"), "MiB", 64);
    PrintValue("Memory more than before the edit", Memory("VmHWM") - before, "MiB", 1.7);
}

void PrintUndo(const Folder& data) {
    Editor editor;
    editor.Open(data / "m60.wav");
    editor.SelectSecondInTheMiddle();
    editor.DeleteSelect();
    std::vector<double> undo, redo;
    for (int i = 0; i < 100; ++i) {
        undo.push_back(SecondsOf([&] { editor.Control().Undo(); }) * 1000);
        redo.push_back(SecondsOf([&] { editor.Control().Redo(); }) * 1000);
    }
    PrintValue("Undo of 60 min", Median(undo), "ms", 1);
    PrintValue("Redo of 60 min", Median(redo), "ms", 1);
}

}  // namespace

void PrintEditFigures(const Folder& data) {
    PrintDeleteRatio(data);
    PrintPasteRatio(data);
    PrintConversion(data, "m10.wav", 22050, 1, "-q", 0.5);
    PrintConversion(data, "m10-8000.wav", 44100, 1, "-h", 1);
    PrintMp3(data);
    PrintMemory(data);
    PrintUndo(data);
}

}  // namespace mavrin2::bench
