#pragma once

#include <gtest/gtest.h>

#include "companions/kestrin/operations/backend_libraries.h"
#include "companions/kestrin/operations/transform.h"
#include "tests/support/built_backends.h"
#include "tests/support/sound/measures.h"

namespace mavrin2::kestrin {

using test::AmplitudeAt;
using test::Correlation;
using test::Decibels;
using test::FrequencyNear;
using test::LargestStep;
using test::Peak;
using test::Rms;
using test::Samples;
using test::Sine;
using test::Sum;
using test::WhiteNoise;
using Id = OperationId;
using Floats = std::vector<float>;

class VectorBlock final : public SampleBlock {
public:
    explicit VectorBlock(test::Samples samples) : samples_(std::move(samples)) {}

    std::span<std::int16_t> Samples() override { return samples_; }
    void Shorten(std::size_t count) override { samples_.resize(count); }
    std::span<std::int16_t> MakeReplacement(std::size_t count) override {
        replacement_.resize(count);
        return replacement_;
    }
    void UseReplacement() override { samples_ = std::move(replacement_); }

private:
    test::Samples samples_;
    test::Samples replacement_;
};

class Percents final : public Progress {
public:
    void AddLimited(std::size_t samples) override { Limited += samples; }
    void Report(double fraction) override {
        EXPECT_GE(fraction, last_);
        EXPECT_LE(fraction, 1.0 + 1e-9);
        last_ = fraction;
        if (reports_++ == AbortAt) throw Aborted();
    }
    int Reports() const { return reports_; }

    int AbortAt = -1;
    std::size_t Limited = 0;

private:
    double last_ = 0;
    int reports_ = 0;
};

class TransformTest : public testing::Test {
protected:
    Samples Run(Id id, Samples samples, const Floats& values = {},
                const std::vector<Floats>& arrays = {}) {
        VectorBlock block(std::move(samples));
        Percents progress;
        Run(id, block, values, arrays, progress);
        return {block.Samples().begin(), block.Samples().end()};
    }
    void Run(Id id, VectorBlock& block, const Floats& values, const std::vector<Floats>& arrays,
             Progress& progress) {
        const std::vector<std::span<const float>> spans(arrays.begin(), arrays.end());
        transform_.Run(id, block, values, spans, progress);
    }

    // The gain of an operation for a sine, in dB, in the middle of a second of it.
    double GainAt(double frequency, Id id, const Floats& values,
                  const std::vector<Floats>& arrays = {}) {
        const Samples before = Sine(frequency, 44100, 0.1);
        const Samples after = Run(id, before, values, arrays);
        EXPECT_EQ(after.size(), before.size());
        return Decibels(AmplitudeAt(Middle(after), frequency) /
                        AmplitudeAt(Middle(before), frequency));
    }
    static std::span<const std::int16_t> Middle(const Samples& samples) {
        return std::span(samples).subspan(samples.size() / 4, samples.size() / 2);
    }

    BackendLibraries libraries_{tests::BuiltBackends("kestrin")};
    Transform transform_{libraries_};
};

}  // namespace mavrin2::kestrin
