#include <malloc.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/safe_array.h"
#include "automation/text.h"
#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"
#include "bench/shown_editor.h"
#include "control/editor/markers/marker_display_list.h"

namespace mavrin2::bench {
namespace {

constexpr LONG kMarkers = 100000;
constexpr LONG kFrames = 1000000;
constexpr int kRounds = 15;

double Milliseconds(const std::function<void()>& run) {
    return SecondsOf(run) * 1000;
}

// As much as the program has taken from the system's allocator, in MB.
double Allocated() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

void MakeSound(Editor& editor) {
    editor.Control().New(interfaces::FrequencyConstants{44100},
                         interfaces::ChannelsConstants::MONO);
    const automation::SafeArray<std::int16_t> samples(kFrames);
    SAFEARRAY* array = samples.Get();
    editor.Control().PutAudioArray(&array);
}

automation::ComPtr<interfaces::IMavrin2Markers> MarkersOf(Editor& editor) {
    automation::ComPtr<interfaces::IMavrin2Markers> markers;
    editor.Control().get_Markers(markers.Put());
    return markers;
}

// At scattered positions, and as a batch.
void InsertMarkers(Editor& editor) {
    const auto markers = MarkersOf(editor);
    const automation::Bstr label{std::string_view("marker")};
    editor.Control().BeginOperations();
    for (LONG i = 0; i < kMarkers; ++i)
        markers->Insert(static_cast<LONG>(i * 7919LL % kFrames), i % 2, label.Get(), nullptr);
}

void PrintScripts(const Folder& programs, const Folder& scripts) {
    const auto seconds = [&](const std::string& count, std::vector<std::string> batch) {
        std::vector<std::string> command{(programs / "mavrin2").string(), "run",
                                         (scripts / "markers.lua").string(), count};
        command.insert(command.end(), batch.begin(), batch.end());
        std::vector<double> times;
        for (int i = 0; i < 5; ++i)
            times.push_back(SecondsOf([&] { RunProgram(command); }));
        return Median(times);
    };
    const double start = seconds("0", {});
    PrintValue("100,000 Inserts by script", seconds("100000", {}) - start, "s", 0.3);
    PrintValue("100,000 Inserts by script in a batch", seconds("100000", {"batch"}) - start, "s",
               0.3);
}

void PrintList(const std::string& where, Editor& editor, double undoLimit) {
    MakeSound(editor);
    InsertMarkers(editor);
    PrintValue("EndOperations after it" + where,
               Milliseconds([&] { editor.Control().EndOperations(); }), "ms", 30);
    const auto markers = MarkersOf(editor);
    auto* details = static_cast<interfaces::IMavrin2MarkerDetails*>(markers.Get());
    PrintValue("Sort of 100,000 markers" + where, Milliseconds([&] { details->Sort(); }), "ms", 20);

    editor.SelectSecondInTheMiddle();
    editor.DeleteSelect();
    std::vector<double> undo;
    for (int i = 0; i < kRounds; ++i) {
        undo.push_back(Milliseconds([&] { editor.Control().Undo(); }));
        editor.Control().Redo();
    }
    PrintValue("Undo with 100,000 markers" + where, Median(undo), "ms", undoLimit);
}

// The same edit of the same sound, with markers and without.
void PrintEdit() {
    Editor marked, bare;
    MakeSound(marked);
    MakeSound(bare);
    InsertMarkers(marked);
    marked.Control().EndOperations();
    std::vector<double> times[2];
    double taken[2];
    for (int i = 0; i < kRounds; ++i)
        for (const int which : {0, 1}) {
            Editor& editor = which ? marked : bare;
            editor.SelectSecondInTheMiddle();
            const double before = Allocated();
            times[which].push_back(Milliseconds([&] { editor.DeleteSelect(); }));
            // Later rounds take the place of what was undone.
            if (i == 0) taken[which] = Allocated() - before;
            editor.Control().Undo();
        }
    PrintValue("An edit with 100,000 markers, more than without",
               Median(times[1]) - Median(times[0]), "ms", 10);
    PrintValue("Memory of its version, more than without", taken[1] - taken[0], "MB", 5);
}

void PrintHitTest() {
    editor::MarkerList list;
    const auto texts = std::make_shared<const editor::MarkerTexts>();
    for (std::int64_t i = 0; i < kMarkers; ++i)
        list.Append({i * 7919 % kFrames, i % 50, i % 7, 0, 0, texts});
    editor::MarkerDisplayList shown;
    shown.Rebuild(list, signal::Bytes(4));
    shown.SetVisible({0, kMarkers - 1});
    std::vector<double> times;
    std::int64_t found = 0;
    for (int i = 0; i < 200; ++i)
        times.push_back(
            Milliseconds([&] { found += shown.HitTestMarker(signal::Bytes(i * 20011)).Number; }));
    PrintValue("Hit test among 100,000 markers", found > 0 ? Median(times) : 0, "ms", 0.3);
}

// What a redraw takes more than without markers: none of them is in view.
void PrintRedraws() {
    ShownEditor editor(1920, 400);
    MakeSound(editor);
    editor.Control().Zoom(0, 5000);
    const auto redraw = [&] {
        std::vector<double> times;
        for (int i = 0; i < 200; ++i)
            times.push_back(Milliseconds([&] { editor.Redraw(); }));
        return Median(times);
    };
    const double bare = redraw();
    const auto markers = MarkersOf(editor);
    LONG made = 0;
    const auto insert = [&](LONG count) {
        editor.Control().BeginOperations();
        for (; made < count; ++made)
            markers->Insert(static_cast<LONG>(10000 + made * 7919LL % (kFrames - 20000)),
                            made % 2 * 50, nullptr, nullptr);
        editor.Control().EndOperations();
        return redraw() - bare;
    };
    PrintValue("A redraw with 10,000 markers, more than without", insert(10000), "ms", 0.2);
    PrintValue("A redraw with 100,000 markers, more than without", insert(kMarkers), "ms", 1.5);
}

}  // namespace

void PrintMarkerFigures(const Folder& programs, const Folder& scripts) {
    PrintScripts(programs, scripts);
    {
        Editor editor;
        PrintList("", editor, 1);
    }
    {
        ShownEditor editor(1920, 400);
        PrintList(", with a picture", editor, 11);
    }
    PrintEdit();
    PrintHitTest();
    PrintRedraws();
}

}  // namespace mavrin2::bench
