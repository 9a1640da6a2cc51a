#pragma once

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <string>
#include <vector>

#include "companions/ontiva/formats/sound_format.h"
#include "companions/ontiva/libraries/backend_libraries.h"
#include "tests/support/built_backends.h"

namespace mavrin2::ontiva {

// A file in memory.
class BytesFile final : public platform::File {
public:
    explicit BytesFile(std::string bytes) : Bytes(std::move(bytes)) {}

    std::optional<std::size_t> Read(std::int64_t offset, std::span<std::byte> target) override {
        const auto size = static_cast<std::int64_t>(Bytes.size());
        if (offset >= size) return 0;
        const auto count = std::min(target.size(), static_cast<std::size_t>(size - offset));
        std::copy_n(reinterpret_cast<const std::byte*>(Bytes.data()) + offset, count,
                    target.begin());
        BytesRead += count;
        return count;
    }
    bool Write(std::int64_t offset, std::span<const std::byte> source) override {
        const auto start = static_cast<std::size_t>(offset);
        Bytes.resize(std::max(Bytes.size(), start + source.size()));
        std::copy(source.begin(), source.end(), reinterpret_cast<std::byte*>(Bytes.data()) + start);
        return true;
    }
    std::optional<std::int64_t> Length() override {
        return static_cast<std::int64_t>(Bytes.size());
    }

    std::string Bytes;
    std::size_t BytesRead = 0;
};

inline const BackendLibraries kLibraries(tests::BuiltBackends("ontiva"));

inline SoundInfo ReadInfo(const std::string& bytes) {
    BytesFile file(bytes);
    EditedFile edited(file);
    const auto format = FormatOf(edited, kLibraries);
    return format ? format->Read(edited) : SoundInfo();
}

// The file after it was written to, as a copy and in place alike.
inline std::string WithInfo(const std::string& bytes, const SoundInfo& info) {
    BytesFile file(bytes);
    EditedFile edited(file);
    const auto change = FormatOf(edited, kLibraries)->Write(edited, info);
    if (change) {
        file.Bytes += change->Tail;
        for (const auto& [offset, part] : change->Switches)
            file.Bytes.replace(static_cast<std::size_t>(offset), part.size(), part);
        return file.Bytes;
    }
    return edited.Bytes(0, edited.Length());
}

// A file in memory as libsndfile sees it.
class SndfileBytes {
public:
    explicit SndfileBytes(std::string bytes = {}) : Bytes(std::move(bytes)) {}

    SNDFILE* Open(int mode, SF_INFO& info) {
        SF_VIRTUAL_IO io{Length, Seek, Read, Write, Tell};
        SNDFILE* file = sf_open_virtual(&io, mode, &info, this);
        EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
        return file;
    }

    std::string Bytes;

private:
    static sf_count_t Length(void* self) {
        return static_cast<sf_count_t>(static_cast<SndfileBytes*>(self)->Bytes.size());
    }
    static sf_count_t Seek(sf_count_t offset, int whence, void* self) {
        auto& position = static_cast<SndfileBytes*>(self)->position_;
        return position = offset + (whence == SEEK_CUR   ? position
                                    : whence == SEEK_END ? Length(self)
                                                         : 0);
    }
    static sf_count_t Read(void* target, sf_count_t count, void* self) {
        auto& bytes = static_cast<SndfileBytes*>(self)->Bytes;
        auto& position = static_cast<SndfileBytes*>(self)->position_;
        if (position >= Length(self)) return 0;
        const auto got = static_cast<sf_count_t>(bytes.copy(static_cast<char*>(target),
                                                            static_cast<std::size_t>(count),
                                                            static_cast<std::size_t>(position)));
        position += got;
        return got;
    }
    static sf_count_t Write(const void* source, sf_count_t count, void* self) {
        auto& bytes = static_cast<SndfileBytes*>(self)->Bytes;
        auto& position = static_cast<SndfileBytes*>(self)->position_;
        const auto start = static_cast<std::size_t>(position);
        const auto size = static_cast<std::size_t>(count);
        bytes.resize(std::max(bytes.size(), start + size));
        bytes.replace(start, size, static_cast<const char*>(source), size);
        position += count;
        return count;
    }
    static sf_count_t Tell(void* self) { return static_cast<SndfileBytes*>(self)->position_; }

    sf_count_t position_ = 0;
};

// A sound in mono at 44100 Hz, as libsndfile writes it.
inline std::string MakeSound(int format, std::size_t frames = 40001) {
    SndfileBytes bytes;
    SF_INFO info{};
    info.samplerate = (format & SF_FORMAT_SUBMASK) == SF_FORMAT_OPUS ? 48000 : 44100;
    info.channels = 1;
    info.format = format;
    SNDFILE* file = bytes.Open(SFM_WRITE, info);
    std::vector<short> samples(frames);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<short>(i * 7919 % 20000);
    sf_write_short(file, samples.data(), static_cast<sf_count_t>(samples.size()));
    sf_close(file);
    return bytes.Bytes;
}

// What libsndfile finds in a file.
struct Judged {
    std::vector<short> Samples;
    std::vector<std::string> Labels;
    std::vector<std::uint32_t> Positions;
    bool operator==(const Judged&) const = default;
};
inline Judged Judge(const std::string& bytes) {
    SndfileBytes source(bytes);
    SF_INFO info{};
    SNDFILE* file = source.Open(SFM_READ, info);
    Judged judged;
    judged.Samples.resize(static_cast<std::size_t>(info.frames));
    sf_read_short(file, judged.Samples.data(), info.frames);
    SF_CUES cues{};
    if (sf_command(file, SFC_GET_CUE, &cues, sizeof cues) != SF_TRUE) cues.cue_count = 0;
    for (std::uint32_t i = 0; i < cues.cue_count; ++i) {
        judged.Labels.emplace_back(cues.cue_points[i].name);
        judged.Positions.push_back(cues.cue_points[i].sample_offset);
    }
    sf_close(file);
    return judged;
}

struct Kind {
    const char* Name;
    int Format;
};
inline constexpr Kind kKinds[] = {
    {"Wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16},         {"Rf64", SF_FORMAT_RF64 | SF_FORMAT_PCM_16},
    {"Aiff", SF_FORMAT_AIFF | SF_FORMAT_PCM_16},       {"Flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
    {"Ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},         {"Opus", SF_FORMAT_OGG | SF_FORMAT_OPUS},
    {"Mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III}};

class EachKind : public testing::TestWithParam<Kind> {
protected:
    std::string Sound(std::size_t frames = 40001) const {
        return MakeSound(GetParam().Format, frames);
    }
};

}  // namespace mavrin2::ontiva
