#pragma once

#include <gtest/gtest.h>
#include <sndfile.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "companions/dusoro/sound/sound_files.h"
#include "platform/ports.h"
#include "platform/replacement_file.h"
#include "tests/support/built_backends.h"
#include "tests/support/scratch_folder.h"

namespace mavrin2::dusoro {

using Samples = std::vector<std::int16_t>;

// A folder of its own for each test, and the sound files in it.
class SoundTest : public testing::Test {
protected:
    std::filesystem::path In(const std::string& name) const { return folder_.Path() / name; }
    static std::filesystem::path Data(const std::string& name) {
        return std::filesystem::path(TEST_DATA_DIR) / name;
    }

    std::vector<std::string> NamesInFolder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    static void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string ReadBytes(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Interleaved noise that is the same in every run.
    static Samples Noise(std::size_t values, int peak = 32767) {
        std::mt19937 random(7);
        Samples samples(values);
        for (auto& x : samples)
            x = static_cast<std::int16_t>(static_cast<int>(random() % (2 * peak + 1)) - peak);
        return samples;
    }

    // A file made by libsndfile itself from values of the given type.
    template <class Value>
    static void Make(const std::filesystem::path& path, int format, int rate, int channels,
                     const std::vector<Value>& values, const std::vector<int>& channelMap = {}) {
        SF_INFO info{};
        info.format = format;
        info.samplerate = rate;
        info.channels = channels;
        SNDFILE* file = sf_open(path.string().c_str(), SFM_WRITE, &info);
        ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
        if (!channelMap.empty()) {
            auto map = channelMap;
            sf_command(file, SFC_SET_CHANNEL_MAP_INFO, map.data(),
                       static_cast<int>(map.size() * sizeof(int)));
        }
        const auto count = static_cast<sf_count_t>(values.size());
        if constexpr (std::is_same_v<Value, std::int16_t>)
            EXPECT_EQ(sf_write_short(file, values.data(), count), count);
        else if constexpr (std::is_same_v<Value, std::int32_t>)
            EXPECT_EQ(sf_write_int(file, values.data(), count), count);
        else if constexpr (std::is_same_v<Value, float>)
            EXPECT_EQ(sf_write_float(file, values.data(), count), count);
        else
            EXPECT_EQ(sf_write_double(file, values.data(), count), count);
        sf_close(file);
    }

    std::unique_ptr<SoundReader> Open(const std::filesystem::path& path,
                                      FormatType type = FormatType::Default) const {
        auto opened = files_.Open(path, type);
        EXPECT_EQ(opened.Error, SoundError::None) << path;
        return std::move(opened.Result);
    }
    SoundError OpenError(const std::filesystem::path& path,
                         FormatType type = FormatType::Default) const {
        return files_.Open(path, type).Error;
    }

    // All that is left, in blocks of that many frames.
    static Samples ReadAll(SoundReader& reader, std::size_t block = 4096) {
        const auto channels = static_cast<std::size_t>(reader.Description().Delivered.Channels);
        Samples all;
        Samples part(block * channels);
        while (const std::size_t frames = reader.Read(part))
            all.insert(all.end(), part.begin(),
                       part.begin() + static_cast<std::ptrdiff_t>(frames * channels));
        return all;
    }
    Samples ReadAll(const std::filesystem::path& path) const {
        const auto reader = Open(path);
        return reader ? ReadAll(*reader) : Samples();
    }

    std::unique_ptr<SoundWriter> Create(const std::filesystem::path& path, PcmFormat document,
                                        FormatType type = FormatType::Default,
                                        std::int32_t bits = 16) const {
        OutputSettings settings;
        settings.Document = document;
        if (bits != 16) settings.Chosen = {Coding::Pcm, document, bits};
        auto created = files_.Create(path, type, settings);
        EXPECT_EQ(created.Error, SoundError::None) << path;
        if (!created) return nullptr;
        EXPECT_TRUE(files_.WriteFrom(created.Result, document));
        return std::move(created.Result);
    }
    // Whether all of it reached the file.
    bool Save(const std::filesystem::path& path, PcmFormat document, const Samples& samples,
              FormatType type = FormatType::Default, std::int32_t bits = 16) const {
        const auto writer = Create(path, document, type, bits);
        return writer && writer->Write(samples) && writer->Finish();
    }

    static SoundFiles FilesOf(
        std::shared_ptr<platform::FileSystem> inputs,
        std::shared_ptr<const backends::Backends> backends = tests::BuiltBackends("dusoro")) {
        return SoundFiles(std::move(inputs), platform::SystemReplacementFiles(),
                          SoundBackends(std::move(backends)));
    }

    SoundFiles files_ = FilesOf(platform::SystemPorts().Files);

private:
    tests::ScratchFolder folder_;
};

}  // namespace mavrin2::dusoro
