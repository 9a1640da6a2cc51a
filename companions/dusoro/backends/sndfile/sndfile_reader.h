#pragma once

#include <limits>
#include <optional>
#include <vector>

#include "companions/dusoro/backends/sndfile/sndfile_io.h"
#include "companions/dusoro/sound/backend.h"
#include "companions/dusoro/sound/down_mix.h"

namespace mavrin2::dusoro {

class SndfileReader final : public SoundReader {
public:
    static Outcome<std::unique_ptr<SoundReader>> Open(std::shared_ptr<platform::File> file,
                                                      const ReadingHint& hint);

    const SourceDescription& Description() const override { return description_; }
    std::size_t Read(std::span<std::int16_t> samples) override;
    SourceFaults Faults() const override { return {0, limited_, false}; }

private:
    // What libsndfile is asked for: the type that holds the file's samples without loss.
    enum class Native : std::uint8_t { Short, Pairs, Int, Float, Double };

    SndfileReader() = default;
    void OpenHeaderless(const OutputFormat& format, SF_INFO& info);
    void Describe(const SF_INFO& info);
    void LimitToFrameCount();
    std::size_t ReadFrames(std::span<std::int16_t> samples, std::size_t frames);
    std::vector<Speaker> Speakers(int channels);
    std::size_t ReadPairs(std::span<std::int16_t> samples);
    std::size_t ReadMixed(std::int16_t* out, std::size_t frames);
    template <class Sample>
    std::size_t ReadConverted(sf_count_t (*read)(SNDFILE*, Sample*, sf_count_t),
                              std::vector<Sample>& block, std::int16_t* out, std::size_t frames);

    std::shared_ptr<platform::File> file_;
    std::unique_ptr<platform::File> headed_;
    SndfileStream stream_;
    SndfileHandle handle_;
    SourceDescription description_;
    std::int64_t left_ = std::numeric_limits<std::int64_t>::max();  // frames to be delivered
    bool check_ = false;
    std::int64_t limited_ = 0;
    Native native_ = Native::Short;
    std::optional<DownMix> downMix_;
    std::vector<std::int16_t> pairs_;
    std::span<const std::int16_t> pairsLeft_;
    std::vector<std::int32_t> ints_;
    std::vector<float> floats_;
    std::vector<double> doubles_;
};

}  // namespace mavrin2::dusoro
