#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "companions/kestrin/kernels/smoothing.h"
#include "companions/kestrin/operations/operation_table.h"

namespace mavrin2::kestrin {

// The samples that an operation is given, and where it puts what it makes of them.
class SampleBlock {
public:
    virtual ~SampleBlock() = default;

    virtual std::span<std::int16_t> Samples() = 0;
    // Keeps the first `count` samples.
    virtual void Shorten(std::size_t count) = 0;
    // Zeros beside the present samples, which stay until UseReplacement. Throws std::bad_alloc.
    virtual std::span<std::int16_t> MakeReplacement(std::size_t count) = 0;
    virtual void UseReplacement() = 0;
};

// The operations with the settings that outlast them.
class Transform {
public:
    explicit Transform(const Libraries& libraries) : libraries_(libraries) {}

    // Samples a second. Outside of 100 … 768000 the nearer end counts.
    void SetRate(std::int32_t rate);
    // Channels of the interleaved blocks to come, 1 where it is less.
    void SetChannels(std::int32_t channels);
    void SetSmoothStart(bool on);
    void SetSmoothEnd(bool on);
    void SetSmoothTime(std::int32_t milliseconds) { smoothing_.Milliseconds = milliseconds; }
    // The next block is not the second channel of a sound whose first channel came before.
    void BeginPair() { pair_.Forget(); }

    // Runs one operation. `values` and `arrays` belong to its parameters in the order of the table;
    // what is outside of their ranges is limited. Throws what `progress` throws, LibraryMissing and
    // std::bad_alloc; the samples are then partly processed, or, where it failed before the first
    // of them, as they were.
    void Run(OperationId id, SampleBlock& block, std::span<const float> values,
             std::span<const std::span<const float>> arrays, Progress& progress);

private:
    void RunLimited(OperationId id, SampleBlock& block, std::span<const float> values,
                    std::span<const std::span<const float>> arrays, Progress& progress);
    void RunAs(const Operation& operation, const Request& request, SampleBlock& block,
               Progress& progress) const;

    const Libraries& libraries_;
    std::int32_t rate_ = 44100;
    std::int32_t channels_ = 1;
    SmoothingSettings smoothing_;
    RandomNumbers random_;
    ChannelPair pair_;
    std::optional<OperationId> last_;
};

}  // namespace mavrin2::kestrin
