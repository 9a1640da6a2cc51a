#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"

namespace mavrin2::bench {

void PrintSmallFigures(const Folder& data, const Folder& programs) {
    const std::string program = (programs / "mavrin2").string();
    const std::string sound = (data / "small.wav").string();
    std::vector<double> info;
    for (int i = 0; i < 30; ++i)
        info.push_back(SecondsOf([&] { RunProgram({program, "info", sound}); }) * 1000);
    PrintValue("mavrin2 info of a small WAV", Median(info), "ms", 30);

    std::vector<double> made;
    for (int i = 0; i < 200; ++i)
        made.push_back(SecondsOf([] { Editor editor; }) * 1000);
    PrintValue("Making and releasing a control", Median(made), "ms", 1);
}

}  // namespace mavrin2::bench
