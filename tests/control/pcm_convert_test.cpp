#include "control/signal/pcm_convert.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>
#include <random>
#include <stdexcept>
#include <vector>

namespace mavrin2::signal {
namespace {

using Bytes = std::vector<std::byte>;
using Values = std::vector<int>;

// The conversion once more, one value at a time. Only the filters' coefficients are the
// converter's.
class Model {
public:
    Model(const PcmFormat& in, const PcmFormat& out) : in_(in), out_(out) {}

    Values Convert(Values values, const CFilter& filter) {
        if (in_.Bits < out_.Bits)
            for (int& v : values)
                v = (v - 128) * 256;
        Values channels[2];
        for (std::size_t i = 0; i < values.size(); ++i)
            channels[in_.Channels == 2 ? i % 2 : 0].push_back(values[i]);
        if (in_.Channels == 1) channels[1] = channels[0];
        if (out_.Channels < in_.Channels)
            for (std::size_t i = 0; i < channels[0].size(); ++i)
                channels[0][i] = (channels[0][i] + channels[1][i]) / 2;
        if (in_.Rate != out_.Rate)
            for (int c = 0; c < out_.Channels; ++c)
                channels[c] = Resample(channels[c], c, filter);
        first_ = false;
        Values result;
        for (std::size_t i = 0; i < channels[0].size(); ++i)
            for (int c = 0; c < out_.Channels; ++c)
                result.push_back(in_.Bits > out_.Bits ? channels[c][i] / 256 + 128
                                 : out_.Bits == 8     ? std::clamp(channels[c][i], 0, 255)
                                                      : channels[c][i]);
        return result;
    }

private:
    Values Resample(const Values& in, int c, const CFilter& filter) {
        const double fi = in_.Rate;
        const double fo = out_.Rate;
        const double p = phase_[c];
        const int n = static_cast<int>(in.size());
        const int k = p != 0 ? 1 : 0;
        const double last = (n + k - 1) / fi;
        const int m = static_cast<int>((last - p) * fo) + 1;
        Values out;
        for (int i = 0, j = 0; i < m; ++i) {
            const double t = i / fo + p;
            while (j < n && (j + k) / fi < t)
                ++j;
            if (j == n) break;
            const int a = j == 0 ? previous_[c] : in[j - 1];
            const double y = a + (t - (j + k - 1) / fi) * (in[j] - a) * fi;
            out.push_back(static_cast<int>(std::min(32767.0, std::max(-32767.0, y))));
        }
        while (static_cast<int>(out.size()) < m) {
            Values x{0, 0, 0};
            x.insert(x.end(), out.begin(), out.end());
            const std::size_t e = x.size();
            out.push_back(std::clamp(x[e - 3] - 3 * x[e - 2] + 3 * x[e - 1], -32767, 32767));
        }
        phase_[c] = m / fo - last + p;
        previous_[c] = in.back();
        const bool isShort = first_ && m < std::lround(fo * n * out_.Channels / fi) / out_.Channels;
        // Produced bytes are taken for 16-bit samples.
        if (fo > fi && fi >= 6001)
            Filter(out, c, filter, std::min(m, (m + isShort) * out_.Bits / 16));
        if (isShort) out.insert(out.begin(), 0);
        return out;
    }

    void Filter(Values& out, int c, const CFilter& filter, int kept) {
        Values past = past_[c];
        past.insert(past.end(), out.begin(), out.end());
        if (kept > 50) past_[c].assign(past.begin() + kept, past.begin() + kept + 50);
        for (std::size_t i = 0; i < out.size(); ++i) {
            double y = 0;
            for (std::size_t tap = 0; tap < 50; ++tap)
                y += past[50 + i - tap] * filter.Coefficients()[tap];
            out[i] = static_cast<int>(y > 32767 ? 32766 : y < -32767 ? -32766 : y);
        }
    }

    PcmFormat in_, out_;
    double phase_[2] = {};
    int previous_[2] = {};
    Values past_[2] = {Values(50), Values(50)};
    bool first_ = true;
};

Bytes ToBytes(const Values& values, int bits) {
    Bytes bytes;
    for (const int v : values) {
        bytes.push_back(static_cast<std::byte>(v & 255));
        if (bits == 16) bytes.push_back(static_cast<std::byte>(v >> 8 & 255));
    }
    return bytes;
}

CPcmConvert Converter(const PcmFormat& in, const PcmFormat& out) {
    CPcmConvert convert;
    convert.SetInput(in.Rate, in.Channels, in.Bits);
    convert.SetOutput(out.Rate, out.Channels, out.Bits);
    convert.Init();
    return convert;
}

Bytes ConvertBlock(CPcmConvert& convert, const Bytes& in) {
    Bytes out(convert.OutputCapacityFor(in.size()));
    const auto done = convert.Convert(in, out);
    EXPECT_EQ(in.size(), done.Consumed);
    convert.UpdateFilterHistory(done.Produced);
    out.resize(done.Produced);
    return out;
}

TEST(PcmConvertTest, EqualsAPlainModelInAnyFormatsAndBlocks) {
    std::mt19937 random(3);
    const auto oneOf = [&](auto... choices) {
        const int all[] = {choices...};
        return all[random() % sizeof...(choices)];
    };
    for (int round = 0; round < 120; ++round) {
        const auto format = [&] {
            return PcmFormat{oneOf(8000, 11025, 22050, 44100, 48000, 6000, 6001, 7919), oneOf(1, 2),
                             oneOf(8, 16, 16)};
        };
        const PcmFormat from = format();
        const PcmFormat to = format();
        SCOPED_TRACE(testing::Message()
                     << round << ": " << from.Rate << " Hz, " << from.Channels << ", " << from.Bits
                     << " to " << to.Rate << " Hz, " << to.Channels << ", " << to.Bits);
        CPcmConvert convert = Converter(from, to);
        Model model(from, to);
        // Tiny blocks are where the rate of the output leaves nothing to give.
        const unsigned longest = oneOf(3, 60, 900, 3000);
        const double pitch = 0.001 * static_cast<double>(random() % 1000);
        int time = 0;
        for (int block = 0; block < 8; ++block) {
            Values in((1 + random() % longest) * static_cast<unsigned>(from.Channels));
            for (int& v : in) {
                v = round % 2 ? static_cast<int>(random() % 65536) - 32768
                              : static_cast<int>(32000 * std::sin(pitch * ++time));
                if (from.Bits == 8) v = v / 256 + 128;
            }
            const Bytes expected = from == to
                                       ? ToBytes(in, to.Bits)
                                       : ToBytes(model.Convert(in, convert.Filter(0)), to.Bits);
            ASSERT_EQ(expected, ConvertBlock(convert, ToBytes(in, from.Bits))) << "block " << block;
        }
    }
}

// The amplitude of one frequency in a sound at 44100 Hz.
double Level(const std::vector<std::int16_t>& sound, double frequency) {
    std::complex<double> sum;
    const auto turn = 2 * std::numbers::pi / static_cast<double>(sound.size());
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const auto time = static_cast<double>(i);
        sum += std::polar(sound[i] * (1 - std::cos(turn * time)),
                          2 * std::numbers::pi * frequency / 44100 * time);
    }
    return std::abs(sum) * 2 / static_cast<double>(sound.size());
}

TEST(PcmConvertTest, ImagesOfARaisedToneAreAsLowAsTheDesignPromisesInBlocksOfAnySize) {
    Values tone;
    for (int i = 0; i < 8000; ++i)
        tone.push_back(static_cast<int>(20000 * std::sin(2 * std::numbers::pi * 3000 * i / 8000)));
    std::vector<std::int16_t> whole;
    for (const std::size_t size : {8000u, 800u, 101u}) {
        CPcmConvert convert = Converter({8000, 1, 16}, {44100, 1, 16});
        std::vector<std::int16_t> out;
        for (std::size_t done = 0; done < tone.size(); done += size) {
            const auto block =
                std::span<const int>(tone).subspan(done, std::min(size, tone.size() - done));
            const Bytes bytes = ConvertBlock(convert, ToBytes({block.begin(), block.end()}, 16));
            out.resize(out.size() + bytes.size() / 2);
            std::memcpy(out.data() + out.size() - bytes.size() / 2, bytes.data(), bytes.size());
        }
        const double ripple = convert.Filter(0).Deviation();
        // What linear interpolation leaves of a frequency.
        const auto left = [](double f) {
            const double x = std::numbers::pi * f / 8000;
            return 20000 * std::pow(std::sin(x) / x, 2);
        };
        EXPECT_NEAR(left(3000), Level(out, 3000), left(3000) * ripple + 2);
        for (const double image : {5000, 11000, 13000, 19000, 21000})
            EXPECT_LE(Level(out, image), left(image) * ripple / 15 * 1.01 + 2) << image;
        if (whole.empty()) whole = out;
        ASSERT_NEAR(static_cast<double>(whole.size()), static_cast<double>(out.size()), 1);
        // A time that another block rounds otherwise may move a value by one.
        for (std::size_t i = 0; i < std::min(out.size(), whole.size()); ++i)
            ASSERT_NEAR(whole[i], out[i], 1) << i;
    }
}

TEST(PcmConvertTest, OddInputIsRefusedWithoutHarm) {
    const Bytes in(7);
    Bytes out(64);
    CPcmConvert convert;
    EXPECT_EQ(7u, convert.Convert(in, out).Consumed) << "equal formats are copied byte by byte";
    convert = Converter({44100, 2, 16}, {22050, 1, 16});
    EXPECT_EQ(4u, convert.Convert(in, out).Consumed);
    EXPECT_EQ(0u, convert.Convert(std::span(in).first(3), out).Consumed);
    EXPECT_THROW(convert.Convert(in, std::span(out).first(0)), std::length_error);
    const PcmFormat odd[] = {{0, 2, 16}, {-5, 1, 8}, {8000, 0, 16}, {8000, 1, 12}};
    for (const PcmFormat& format : odd) {
        for (CPcmConvert refusing : {Converter(format, {}), Converter({}, format)}) {
            const auto done = refusing.Convert(in, out);
            EXPECT_EQ(0u, done.Consumed + done.Produced + refusing.OutputCapacityFor(7));
            refusing.UpdateFilterHistory(4);
        }
    }
    EXPECT_FALSE(Converter({8000, 1, 16}, {8002, 1, 16}).FilterEnabled());
    convert.SetInput(8000, 6, 24);
    EXPECT_EQ((PcmFormat{8000, 2, 16}), convert.InputFormat());
}

}  // namespace
}  // namespace mavrin2::signal
