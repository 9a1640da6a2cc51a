#include "companions/contracts/kestrin.h"

#include "automation/interface_builder.h"
#include "companions/contracts/companion_events.h"

namespace mavrin2 {
namespace automation {

// The ranges are those of the operation table; a test holds them together.
template <>
const InterfaceDescription& DescriptionOf<contracts::IKestrin2>() {
    using I = contracts::IKestrin2;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IKestrin2", "Processes sound", &contracts::KestrinLibrary)
            .Reserved(6)
            .Method<&I::MixStereoChannels>(
                7, "MixStereoChannels",
                "Mixes the channels into each other; LLAmp, LRAmp, RLAmp, RRAmp "
                "(left to left, left to right, right to left, right to right): "
                "percent, -10000 to 10000",
                InOut("Samples").ArrayOf(VT_I2), In("LLAmp"), In("LRAmp"), In("RLAmp"), In("RRAmp"))
            .Reserved(1)
            .Method<&I::Resample>(
                9, "Resample",
                "Makes more or fewer samples of the sound; played at the same rate,"
                " tempo and pitch change. Rate: percent of the number of samples, "
                "10 to 1000, 100 = unchanged",
                InOut("Samples").ArrayOf(VT_I2), In("Rate"))
            .Method<&I::PitchShift>(10, "PitchShift",
                                    "Changes the pitch and keeps the length. Rate: percent of the "
                                    "frequencies, 25 to 400, 100 = unchanged, 200 = an octave up",
                                    InOut("Samples").ArrayOf(VT_I2), In("Rate"))
            .Method<&I::TimeStretch>(11, "TimeStretch",
                                     "Changes the length and keeps the pitch. Rate: percent of the "
                                     "length, 25 to 400, 100 = unchanged, 200 = twice as long",
                                     InOut("Samples").ArrayOf(VT_I2), In("Rate"))
            .Method<&I::AddNoise>(
                12, "AddNoise",
                "Adds noise. dbNoiseLevel: root mean square in dB below full scale,"
                " -120 to 0; NoiseType: 0 to 2, 0 = white, 1 = pink, 2 = brown",
                InOut("Samples").ArrayOf(VT_I2), In("dbNoiseLevel"), In("NoiseType"))
            .Method<&I::TrimStart>(
                13, "TrimStart",
                "Removes the beginning up to the first sample above a level. "
                "dbTrimLevel: dB below full scale, -96 to 0; FadeTime: milliseconds"
                " before that sample that are kept and faded in, 0 to 60000",
                InOut("Samples").ArrayOf(VT_I2), In("dbTrimLevel"), In("FadeTime"))
            .Method<&I::TrimEnd>(
                14, "TrimEnd",
                "Removes the end after the last sample above a level. dbTrimLevel: "
                "dB below full scale, -96 to 0; FadeTime: milliseconds after that "
                "sample that are kept and faded out, 0 to 60000",
                InOut("Samples").ArrayOf(VT_I2), In("dbTrimLevel"), In("FadeTime"))
            .Method<&I::DeleteSilence>(
                15, "DeleteSilence",
                "Removes all that is not above a level. dbThreshold: dB below full "
                "scale, -96 to 0; AttackTime: milliseconds kept before sound, 0 to "
                "60000; ReleaseTime: milliseconds kept after sound, 0 to 60000",
                InOut("Samples").ArrayOf(VT_I2), In("dbThreshold"), In("AttackTime"),
                In("ReleaseTime"))
            .Method<&I::Silence>(16, "Silence", "Replaces the sound by silence",
                                 InOut("Samples").ArrayOf(VT_I2))
            .Method<&I::Reverse>(17, "Reverse", "Plays the sound backwards",
                                 InOut("Samples").ArrayOf(VT_I2))
            .Method<&I::Invert>(18, "Invert", "Changes the sign of every sample",
                                InOut("Samples").ArrayOf(VT_I2))
            .Method<&I::Amplify>(19, "Amplify",
                                 "Changes the level. Amp: percent, 0 to 10000, 100 = unchanged",
                                 InOut("Samples").ArrayOf(VT_I2), In("Amp"))
            .Method<&I::Fade>(20, "Fade",
                              "Changes the level along a straight line. AmpLeft: percent at the "
                              "first sample, 0 to 10000; AmpRight: percent at the last sample, 0 "
                              "to 10000",
                              InOut("Samples").ArrayOf(VT_I2), In("AmpLeft"), In("AmpRight"))
            .Method<&I::Normalize>(
                21, "Normalize",
                "Brings the loudest sample to a level. Normalization: percent of "
                "full scale, 0 to 100; DCBiasAdjust: whether the mean is removed "
                "first",
                InOut("Samples").ArrayOf(VT_I2), In("Normalization"), In("DCBiasAdjust").Boolean())
            .Method<&I::Vibrato>(22, "Vibrato",
                                 "Lets the pitch swing. SweepDepth: cents up and down, 0 to 1200; "
                                 "SweepFrequency: Hz, 0.1 to 20; SweepPhase: degrees at the first "
                                 "sample, -360 to 360, 0 = the pitch rises",
                                 InOut("Samples").ArrayOf(VT_I2), In("SweepDepth"),
                                 In("SweepFrequency"), In("SweepPhase"))
            .Method<&I::Envelope>(23, "Envelope",
                                  "Changes the level along lines between points spread evenly over "
                                  "the sound. EnvelopeArray: percent, 0 to 10000, 100 = unchanged",
                                  InOut("Samples").ArrayOf(VT_I2),
                                  In("EnvelopeArray").ArrayOf(VT_R4))
            .Method<&I::Compressor>(
                24, "Compressor",
                "Makes what is loud less loud. dbThreshold: dB (root mean square) "
                "above which it works, -96 to 0; CompressionRate: dB in for each dB"
                " out, 1 to 100, 1 = unchanged; RMSTime: milliseconds over which "
                "the level is measured, 1 to 10000",
                InOut("Samples").ArrayOf(VT_I2), In("dbThreshold"), In("CompressionRate"),
                In("RMSTime"))
            .Method<&I::Expander>(
                25, "Expander",
                "Makes what is quiet quieter. dbThreshold: dB (root mean square) "
                "below which it works, -96 to 0; ExpansionRate: dB out for each dB "
                "in, 1 to 100, 1 = unchanged; RMSTime: milliseconds over which the "
                "level is measured, 1 to 10000",
                InOut("Samples").ArrayOf(VT_I2), In("dbThreshold"), In("ExpansionRate"),
                In("RMSTime"))
            .Method<&I::Delay>(26, "Delay",
                               "Repeats the sound. DelayTime: milliseconds, 1 to 10000; MixDepth: "
                               "percent, level of the first repetition, 0 to 100; FeedBackGain: "
                               "percent, level of each one compared with the one before, -95 to 95",
                               InOut("Samples").ArrayOf(VT_I2), In("DelayTime"), In("MixDepth"),
                               In("FeedBackGain"))
            .Method<&I::Flanger>(27, "Flanger",
                                 "Adds the sound with a delay that sweeps. DelayRate: milliseconds "
                                 "in the middle of the sweep, 0.1 to 20; MixDepth: percent of the "
                                 "delayed sound, 0 to 100; FeedBackGain: percent of it delayed "
                                 "again, -95 to 95; SweepDepth: percent of the delay, 0 to 100; "
                                 "SweepRate: Hz, 0.01 to 20; SweepPhase: degrees at the first "
                                 "sample, -360 to 360",
                                 InOut("Samples").ArrayOf(VT_I2), In("DelayRate"), In("MixDepth"),
                                 In("FeedBackGain"), In("SweepDepth"), In("SweepRate"),
                                 In("SweepPhase"))
            .Method<&I::Chorus>(28, "Chorus",
                                "Adds three voices with delays that sweep. DelayRate: milliseconds "
                                "in the middle of the sweep, 0.1 to 100; MixDepth: percent of the "
                                "voices, 0 to 100; FeedBackGain: percent of them delayed again, -95"
                                " to 95; SweepDepth: percent of the delay, 0 to 100; SweepRate: Hz,"
                                " 0.01 to 20; SweepPhase: degrees at the first sample, -360 to 360",
                                InOut("Samples").ArrayOf(VT_I2), In("DelayRate"), In("MixDepth"),
                                In("FeedBackGain"), In("SweepDepth"), In("SweepRate"),
                                In("SweepPhase"))
            .Method<&I::Phaser>(29, "Phaser",
                                "Sweeps two notches up and down three octaves. DelayTime: "
                                "milliseconds by which low tones are held back where the notches "
                                "are lowest, 0.5 to 20; MixDepth: percent, 0 to 100; FeedBackGain: "
                                "percent, -95 to 95",
                                InOut("Samples").ArrayOf(VT_I2), In("DelayTime"), In("MixDepth"),
                                In("FeedBackGain"))
            .Method<&I::Reverb>(30, "Reverb",
                                "Puts the sound into a room. DelayTime: milliseconds to the first "
                                "reflection, 1 to 200; MixDepth: percent of the room, 0 to 100; "
                                "FeedBackGain: percent of the tail that is left after a turn, 0 to "
                                "98; ReverbrationGain: percent of the tail beside the early "
                                "reflections, 0 to 100; ReverbrationFrequency: Hz from which the "
                                "tail loses high tones, 100 to 192000; nTapDelay: number of early "
                                "reflections, 0 to 64",
                                InOut("Samples").ArrayOf(VT_I2), In("DelayTime"), In("MixDepth"),
                                In("FeedBackGain"), In("ReverbrationGain"),
                                In("ReverbrationFrequency"), In("nTapDelay"))
            .Method<&I::LowPassFilter>(
                31, "LowPassFilter",
                "Removes high tones, 12 dB an octave for each section. Frequency: "
                "Hz, 1 to 192000, below half the rate; Steepness: second-order "
                "sections in series, 1 to 8",
                InOut("Samples").ArrayOf(VT_I2), In("Frequency"), In("Steepness"))
            .Method<&I::HighPassFilter>(
                32, "HighPassFilter",
                "Removes low tones, 12 dB an octave for each section. Frequency: "
                "Hz, 1 to 192000, below half the rate; Steepness: second-order "
                "sections in series, 1 to 8",
                InOut("Samples").ArrayOf(VT_I2), In("Frequency"), In("Steepness"))
            .Method<&I::BandPassFilter>(
                33, "BandPassFilter",
                "Keeps an octave around a frequency. Frequency: Hz, 1 to 192000, "
                "below half the rate; Steepness: second-order sections in series, 1"
                " to 8",
                InOut("Samples").ArrayOf(VT_I2), In("Frequency"), In("Steepness"))
            .Method<&I::NotchFilter>(
                34, "NotchFilter",
                "Removes a third of an octave around a frequency. Frequency: Hz, 1 "
                "to 192000, below half the rate; Steepness: second-order sections "
                "in series, 1 to 8",
                InOut("Samples").ArrayOf(VT_I2), In("Frequency"), In("Steepness"))
            .Method<&I::PeakEQFilter>(
                35, "PeakEQFilter",
                "Lifts or lowers an octave around a frequency. dbGain: dB, -60 to "
                "40, 0 = unchanged; Frequency: Hz, 1 to 192000, below half the "
                "rate; Steepness: second-order sections in series, 1 to 8",
                InOut("Samples").ArrayOf(VT_I2), In("dbGain"), In("Frequency"), In("Steepness"))
            .Method<&I::LowShelfFilter>(
                36, "LowShelfFilter",
                "Lifts or lowers low tones. dbGain: dB, -60 to 40, 0 = unchanged; "
                "Frequency: Hz, 1 to 192000, below half the rate; Steepness: "
                "second-order sections in series, 1 to 8",
                InOut("Samples").ArrayOf(VT_I2), In("dbGain"), In("Frequency"), In("Steepness"))
            .Method<&I::HighShelfFilter>(
                37, "HighShelfFilter",
                "Lifts or lowers high tones. dbGain: dB, -60 to 40, 0 = unchanged; "
                "Frequency: Hz, 1 to 192000, below half the rate; Steepness: "
                "second-order sections in series, 1 to 8",
                InOut("Samples").ArrayOf(VT_I2), In("dbGain"), In("Frequency"), In("Steepness"))
            .Method<&I::Equalizer>(
                38, "Equalizer",
                "Gives bands of frequencies their gains. dbGainArray: dB of each "
                "band, -60 to 40; FreqArray: Hz of each band, 1 to 192000",
                InOut("Samples").ArrayOf(VT_I2), In("dbGainArray").ArrayOf(VT_R4),
                In("FreqArray").ArrayOf(VT_R4))
            .Method<&I::FFTFilter>(
                39, "FFTFilter",
                "Gives frequencies their gains. FFTArray: percent, spread evenly "
                "from 0 to half the rate, 0 to 10000, 100 = unchanged",
                InOut("Samples").ArrayOf(VT_I2), In("FFTArray").ArrayOf(VT_R4))
            .Method<&I::FIRFilter>(
                40, "FIRFilter",
                "Filters with bands of equal ripple. FreqArray: Hz, two edges of "
                "each band, ascending, 0 to 192000; dbGainArray: dB of each band, "
                "-200 to 40, up to -100 = silent; WeightArray: how much an error "
                "counts in each band, 0.001 to 1000; Quality: taps of the filter, 3"
                " to 1023",
                InOut("Samples").ArrayOf(VT_I2), In("FreqArray").ArrayOf(VT_R4),
                In("dbGainArray").ArrayOf(VT_R4), In("WeightArray").ArrayOf(VT_R4), In("Quality"))
            .Reserved(2)
            .Method<&I::Abort>(43, "Abort", "Ends the running operation")
            .Reserved(4)
            .Put<&I::put_SetSmoothingFirst>(
                48, "SetSmoothingFirst",
                "Whether the beginning crossfades from the original sound: 1 or 0")
            .Reserved(1)
            .Put<&I::put_SetSmoothingSecond>(
                50, "SetSmoothingSecond",
                "Whether the end crossfades to the original sound: 1 or 0")
            .Reserved(1)
            .Put<&I::put_SetSmoothTime>(52, "SetSmoothTime",
                                        "Milliseconds of the crossfades; below 1: no crossfades")
            .Reserved(1)
            .Put<&I::put_SetSampleRate>(54, "SetSampleRate",
                                        "Samples a second of the sounds to come, 100 to 768000")
            .Reserved(1)
            .Put<&I::put_SetChannelCount>(56, "SetChannelCount",
                                          "Channels of interleaved sounds to come, 1 to 64")
            .Build();
    return description;
}

}  // namespace automation

namespace contracts {

const automation::LibraryDescription& KestrinLibrary() {
    static const automation::LibraryDescription library{
        "KovKESTRINLib",
        LIBID_KovKestrin,
        2,
        0,
        "KovKestrin 2.0 Type Library",
        {},
        {&automation::DescriptionOf<IKestrin2>, &KestrinEvents},
        {{"KovKestrin", CLSID_KovKestrin, "Signal processing",
          &automation::DescriptionOf<IKestrin2>, &KestrinEvents}}};
    return library;
}

}  // namespace contracts
}  // namespace mavrin2
