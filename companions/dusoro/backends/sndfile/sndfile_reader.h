#pragma once

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

private:
    // What libsndfile is asked for: the type that holds the file's samples without loss.
    enum class Native : std::uint8_t { Short, Pairs, Int, Float, Double };

    SndfileReader() = default;
    void Describe(const SF_INFO& info);
    std::vector<Speaker> Speakers(int channels);
    std::size_t ReadPairs(std::span<std::int16_t> samples);
    std::size_t ReadMixed(std::int16_t* out, std::size_t frames);
    template <class Sample>
    std::size_t ReadConverted(sf_count_t (*read)(SNDFILE*, Sample*, sf_count_t),
                              std::vector<Sample>& block, std::int16_t* out, std::size_t frames);

    std::shared_ptr<platform::File> file_;
    SndfileStream stream_;
    SndfileHandle handle_;
    SourceDescription description_;
    Native native_ = Native::Short;
    std::optional<DownMix> downMix_;
    std::vector<std::int16_t> pairs_;
    std::span<const std::int16_t> pairsLeft_;
    std::vector<std::int32_t> ints_;
    std::vector<float> floats_;
    std::vector<double> doubles_;
};

}  // namespace mavrin2::dusoro
