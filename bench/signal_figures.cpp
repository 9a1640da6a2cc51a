#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "bench/measure.h"
#include "bench/plain_convolution.h"
#include "control/signal/filter.h"
#include "control/signal/pcm_convert.h"

namespace mavrin2::bench {
namespace {

using signal::CFilter;
using signal::CPcmConvert;
using signal::PcmFormat;

// Standard C files, so that reading and writing cost what they cost any program.
using File = std::unique_ptr<std::FILE, decltype([](std::FILE* file) { std::fclose(file); })>;

File OpenFile(const std::filesystem::path& path, const char* mode) {
    File file(std::fopen(path.c_str(), mode));
    if (!file) throw std::runtime_error("cannot open " + path.string());
    return file;
}

// The samples of a WAV file converted into a file without header, a tenth of a second at a time.
void ConvertFile(const std::filesystem::path& in, const PcmFormat& from,
                 const std::filesystem::path& out, const PcmFormat& to) {
    constexpr long headerBytes = 44;
    const File source = OpenFile(in, "rb");
    const File target = OpenFile(out, "wb");
    std::fseek(source.get(), headerBytes, SEEK_SET);
    CPcmConvert convert;
    convert.SetInput(from.Rate, from.Channels, from.Bits);
    convert.SetOutput(to.Rate, to.Channels, to.Bits);
    convert.Init();
    std::vector<std::byte> block(static_cast<std::size_t>(from.Rate / 10 * from.BlockAlignment()));
    std::vector<std::byte> converted(convert.OutputCapacityFor(block.size()));
    while (const std::size_t read = std::fread(block.data(), 1, block.size(), source.get())) {
        const auto done = convert.Convert(std::span(block).first(read), converted);
        convert.UpdateFilterHistory(done.Produced);
        std::fwrite(converted.data(), 1, done.Produced, target.get());
    }
}

void PrintConversion(const Folder& data, const std::string& sound, const PcmFormat& from,
                     const PcmFormat& to, const std::string& quality, double limit) {
    const auto in = data / sound;
    const auto out = data / "converted.raw";
    const auto soxOut = data / "converted.wav";
    const auto remove = [out] { std::filesystem::remove(out); };
    const std::string rate = std::to_string(to.Rate);
    PrintRatio("CPcmConvert, " + sound + " to " + rate + " Hz, " + std::to_string(to.Channels) +
                   " channel",
               {"CPcmConvert", [&] { ConvertFile(in, from, out, to); }, remove, remove},
               {ProgramWriting(soxOut, {"sox", "-D", in.string(), soxOut.string(), "channels",
                                        std::to_string(to.Channels), "rate", quality, rate})},
               limit, 7);
}

}  // namespace

void PrintSignalFigures(const Folder& data) {
    CFilter filter;
    std::vector<double> designs;
    for (int i = 0; i < 50; ++i)
        designs.push_back(SecondsOf([&] { filter.Design(4000, 44100, 15); }) * 1000);
    PrintValue("Filter design, 8000 to 44100 Hz", Median(designs), "ms", 20);

    const std::vector<double> input(4410, 1000);
    std::vector<double> output(input.size());
    const auto manyTimes = [](auto work) {
        return [work] {
            for (int i = 0; i < 1000; ++i)
                work();
        };
    };
    const auto& taps = filter.Coefficients();
    PrintRatio("CFilter, 1000 blocks of 4410 samples",
               {"CFilter", manyTimes([&] { filter.Process(std::span(input), output); })},
               {{"plain loop", manyTimes([&] { ConvolvePlainly(input, taps, output); })}}, 0.33, 7);

    PrintConversion(data, "m10.wav", {44100, 2, 16}, {22050, 1, 16}, "-q", 0.5);
    PrintConversion(data, "m10-8000.wav", {8000, 1, 16}, {44100, 1, 16}, "-h", 1);
}

}  // namespace mavrin2::bench
