// Measures the component beside the programs one would use instead:
// mavrin2-bench DATA PROGRAMS [GROUP…], a group being small, edit, signal, transform, view, mouse,
// tags, markers, open or devices.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <functional>
#include <span>
#include <string_view>

#include "bench/figures.h"

int main(int count, char** arguments) {
    if (count < 3) {
        std::fprintf(stderr, "usage: mavrin2-bench DATA-FOLDER PROGRAM-FOLDER [GROUP…]\n");
        return 2;
    }
    using namespace mavrin2::bench;
    const Folder data = arguments[1];
    const Folder programs = arguments[2];
    struct Group {
        std::string_view Name;
        std::function<void()> Print;
    };
    const Group groups[] = {
        {"small", [&] { PrintSmallFigures(data, programs); }},
        {"edit", [&] { PrintEditFigures(data); }},
        {"signal", [&] { PrintSignalFigures(data); }},
        {"transform", [&] { PrintTransformFigures(data); }},
        {"view", [&] { PrintViewFigures(data, programs); }},
        {"mouse", [&] { PrintMouseFigures(data); }},
        {"tags", [&] { PrintTagFigures(data, BENCH_SCRIPTS); }},
        {"markers", [&] { PrintMarkerFigures(programs, BENCH_SCRIPTS); }},
        {"open", [&] { PrintOpenFigures(data); }},
        {"devices", [&] { PrintDeviceFigures(); }},
    };
    const std::span<char*> wanted(arguments + 3, arguments + count);
    try {
        std::printf("| task | Mavrin2 | others | ratio | at most |\n|---|---|---|---|---|\n");
        for (const Group& group : groups)
            if (wanted.empty() || std::ranges::find(wanted, group.Name) != wanted.end())
                group.Print();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mavrin2-bench: %s\n", error.what());
        return 1;
    }
}
