#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "companions/contracts/lame_settings.h"
#include "companions/dusoro/sound/format_type.h"
#include "companions/dusoro/sound/pcm_format.h"

namespace mavrin2::dusoro {

enum class Coding : std::uint8_t {
    Pcm,
    ALaw,
    MuLaw,
    MsAdpcm,
    ImaAdpcm,
    Gsm,
    Vox,
    Dsp,
    Mp2,
    Mp3,
    Vorbis,
    Opus,
    Flac,
    Wma,
    G721,
    G723,
    G726
};

enum class Container : std::uint8_t { Wav, Aiff, Au, Raw, Flac, Ogg, Mpeg, Asf };

// kbit/s; 0 leaves one to the encoder.
struct BitRates {
    std::int32_t Nominal = 0;
    std::int32_t Least = 0;
    std::int32_t Most = 0;

    bool operator==(const BitRates&) const = default;
};

// A format for files to come.
struct OutputFormat {
    Coding Kind = Coding::Vox;
    PcmFormat Format{8000, 1};
    std::int32_t Bits = 4;                             // of a sample, where the coding has them
    bool Headerless = false;                           // of codings that otherwise have a header
    BitRates Rates = {};                               // of codings that have them
    std::optional<std::int32_t> Quality = {};          // of Vorbis instead of bit rates, 0 … 10
    std::optional<contracts::LameSettings> Lame = {};  // of MP3 instead of bit rates
};

enum class EncoderKind : std::uint8_t { None, Sndfile, Lame, Ffmpeg };

// Which library writes such a file; None for a format without an encoder.
EncoderKind EncoderFor(const OutputFormat& format);

// The format itself where its coding can have it, else with the nearest values.
OutputFormat Nearest(OutputFormat format);
// Nearest at a rate that sound of `source` hertz can be converted to.
OutputFormat Nearest(OutputFormat format, std::int32_t source);

// The kind of file that names with this extension (in lower case) get in this format; nothing when
// they cannot have it.
std::optional<Container> ContainerFor(const OutputFormat& format, std::string_view extension);
// For a name that decides nothing.
Container UsualContainer(const OutputFormat& format);
// Whether a host that asks for `type` can get this format.
bool IsOfType(const OutputFormat& format, FormatType type);

// What a file gets by its name's extension, or the type that a host asks for, in the format of the
// document. Nothing for what is not written.
std::optional<OutputFormat> FormatByExtension(std::string_view extension, PcmFormat document);
std::optional<OutputFormat> FormatByType(FormatType type, PcmFormat document);
// Whether users would expect a certain format under such a name, written here or not.
bool IsKnownExtension(std::string_view extension);

// The bit rate that is nearest to `rate` (kbit/s), of those that MPEG audio has in this layer (2 or
// 3) at that many hertz.
std::int32_t NearestMpegRate(int layer, std::int32_t hertz, std::int32_t rate);
bool IsMpegRate(std::int32_t hertz);

// Row of the table of WMA profiles in docs/formats.md; the nearest for other numbers.
OutputFormat WmaProfile(std::int32_t number);

// As shown to users: "G.726 8000 Hz; 4 bit; mono".
std::string TextOf(const OutputFormat& format);

}  // namespace mavrin2::dusoro
