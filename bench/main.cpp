// Measures the component beside the programs one would use instead: mavrin2-bench DATA PROGRAMS.

#include <cstdio>
#include <exception>

#include "bench/figures.h"

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: mavrin2-bench DATA-FOLDER PROGRAM-FOLDER\n");
        return 2;
    }
    try {
        const mavrin2::bench::Folder data = arguments[1];
        std::printf("| task | Mavrin2 | others | ratio | at most |\n|---|---|---|---|---|\n");
        mavrin2::bench::PrintSmallFigures(data, arguments[2]);
        mavrin2::bench::PrintEditFigures(data);
        mavrin2::bench::PrintViewFigures(data, arguments[2]);
        mavrin2::bench::PrintOpenFigures(data);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mavrin2-bench: %s\n", error.what());
        return 1;
    }
}
