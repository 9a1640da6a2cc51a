#include "control/interfaces/transform.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Transform>() {
    using I = interfaces::IMavrin2Transform;
    using interfaces::TrimConstants;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Transform", "Signal processing of the selection",
                            &interfaces::ControlLibrary)
            .Method<&I::Resample>(1, "Resample",
                                  "Changes length and pitch: percent of the length, 10 ... 1000",
                                  In("Rate"))
            .Method<&I::PitchShift>(2, "PitchShift",
                                    "Changes the pitch alone: percent of the frequency, 25 ... 400",
                                    In("Rate"))
            .Method<&I::TimeStretch>(3, "TimeStretch",
                                     "Changes the length alone: percent of the length, 25 ... 400",
                                     In("Rate"))
            .Method<&I::AddNoise>(
                4, "AddNoise", "Adds noise: dB of full scale, -120 ... 0; 0 white, 1 pink, 2 brown",
                In("dbNoiseLevel"), In("NoiseType"))
            .Method<&I::Trim>(5, "Trim",
                              "Removes what is quieter at the ends: dB, -96 ... 0; fade in ms",
                              In("dbTrimLevel"), In("FadeTime"),
                              In("TrimParam").Default(TrimConstants::TRIM_BOTH))
            .Method<&I::DeleteSilence>(6, "DeleteSilence",
                                       "Removes stretches that stay quieter: dB, -96 ... 0; ms "
                                       "kept before and after sound",
                                       In("dbThreshold"), In("AttackTime"), In("ReleaseTime"))
            .Method<&I::InsertSilence>(7, "InsertSilence",
                                       "Inserts silence, or replaces the selection by it: ms",
                                       In("Millisec"))
            .Method<&I::MixStereoChannels>(
                8, "MixStereoChannels",
                "Mixes left and right anew: percent from left to left, left to right, right to "
                "left, right to right, -10000 ... 10000",
                In("LLAmp"), In("LRAmp"), In("RLAmp"), In("RRAmp"))
            .Method<&I::Silence>(9, "Silence", "Replaces the sound by silence")
            .Method<&I::Reverse>(10, "Reverse", "Plays the sound backwards")
            .Method<&I::Invert>(11, "Invert", "Changes the sign of every sample")
            .Method<&I::Amplify>(12, "Amplify", "Changes the level: percent, 0 ... 10000",
                                 In("Amp"))
            .Method<&I::Fade>(13, "Fade",
                              "Changes the level from one end to the other: percent, 0 ... 10000",
                              In("AmpLeft"), In("AmpRight"))
            .Method<&I::Normalize>(
                14, "Normalize",
                "Brings the peak to a level: percent of full scale, 0 ... 100; removes a DC offset "
                "first if asked to",
                In("Normalization"), In("DCBiasAdjust").Boolean())
            .Method<&I::Vibrato>(15, "Vibrato",
                                 "Sweeps the pitch: cents, 0 ... 1200; Hz, 0.1 ... 20; degrees",
                                 In("SweepDepth"), In("SweepFrequency"), In("SweepPhase"))
            .Method<&I::Envelope>(
                16, "Envelope",
                "Changes the level along a curve of evenly spaced points: percent, 0 ... 10000",
                In("EnvelopeArray").ArrayOf(VT_R4))
            .Method<&I::Compressor>(
                17, "Compressor",
                "Reduces levels above a threshold: dB, -96 ... 0; ratio, 1 ... 100; ms, 1 ... "
                "10000",
                In("dbThreshold"), In("CompressionRate"), In("RMSTime"))
            .Method<&I::Expander>(
                18, "Expander",
                "Reduces levels below a threshold: dB, -96 ... 0; ratio, 1 ... 100; ms, 1 ... "
                "10000",
                In("dbThreshold"), In("ExpansionRate"), In("RMSTime"))
            .Method<&I::Delay>(19, "Delay",
                               "Adds echoes: ms, 1 ... 10000; percent, 0 ... 100; percent, -95 ... "
                               "95",
                               In("DelayTime"), In("MixDepth"), In("FeedBackGain"))
            .Method<&I::Flanger>(
                20, "Flanger",
                "Adds a swept short delay: ms, 0.1 ... 20; percent, 0 ... 100; percent, -95 ... "
                "95; percent, 0 ... 100; Hz, 0.01 ... 20; degrees",
                In("DelayRate"), In("MixDepth"), In("FeedBackGain"), In("SweepDepth"),
                In("SweepRate"), In("SweepPhase"))
            .Method<&I::Chorus>(
                21, "Chorus",
                "Adds a swept delay as of a second voice: ms, 0.1 ... 100; otherwise as Flanger",
                In("DelayRate"), In("MixDepth"), In("FeedBackGain"), In("SweepDepth"),
                In("SweepRate"), In("SweepPhase"))
            .Method<&I::Phaser>(
                22, "Phaser",
                "Adds notches that move: ms, 0.5 ... 20; percent, 0 ... 100; percent, -95 ... 95",
                In("DelayTime"), In("MixDepth"), In("FeedBackGain"))
            .Method<&I::Reverb>(
                23, "Reverb",
                "Adds the sound of a room: ms, 1 ... 200; percent, 0 ... 100; percent, 0 ... 98; "
                "percent, 0 ... 100; Hz from 100; early echoes, 0 ... 64",
                In("DelayTime"), In("MixDepth"), In("FeedBackGain"), In("ReverbrationGain"),
                In("ReverbrationFrequency"), In("nTapDelay"))
            .Method<&I::LowPassFilter>(24, "LowPassFilter",
                                       "Removes what is above: Hz; filters in series, 1 ... 8",
                                       In("Frequency"), In("Steepness"))
            .Method<&I::HighPassFilter>(25, "HighPassFilter",
                                        "Removes what is below: Hz; filters in series, 1 ... 8",
                                        In("Frequency"), In("Steepness"))
            .Method<&I::BandPassFilter>(26, "BandPassFilter",
                                        "Keeps what is around: Hz; filters in series, 1 ... 8",
                                        In("Frequency"), In("Steepness"))
            .Method<&I::NotchFilter>(27, "NotchFilter",
                                     "Removes what is around: Hz; filters in series, 1 ... 8",
                                     In("Frequency"), In("Steepness"))
            .Method<&I::PeakEQFilter>(
                28, "PeakEQFilter",
                "Changes the level around a frequency: dB, -60 ... 40; Hz; filters in series",
                In("dbGain"), In("Frequency"), In("Steepness"))
            .Method<&I::Equalizer>(29, "Equalizer",
                                   "Changes the level at several frequencies: dB, -60 ... 40; Hz",
                                   In("dbGainArray").ArrayOf(VT_R4), In("FreqArray").ArrayOf(VT_R4))
            .Method<&I::LowShelfFilter>(
                30, "LowShelfFilter",
                "Changes the level of what is below: dB, -60 ... 40; Hz; filters in series",
                In("dbGain"), In("Frequency"), In("Steepness"))
            .Method<&I::HighShelfFilter>(
                31, "HighShelfFilter",
                "Changes the level of what is above: dB, -60 ... 40; Hz; filters in series",
                In("dbGain"), In("Frequency"), In("Steepness"))
            .Method<&I::FFTFilter>(
                32, "FFTFilter",
                "Changes the level of evenly spaced bands from 0 Hz to half the rate: percent",
                In("FFTArray").ArrayOf(VT_R4))
            .Method<&I::FIRFilter>(
                33, "FIRFilter",
                "Filters with a designed response: Hz; dB, -200 ... 40; weights; coefficients, 3 "
                "... 1023",
                In("FreqArray").ArrayOf(VT_R4), In("dbGainArray").ArrayOf(VT_R4),
                In("WeightArray").ArrayOf(VT_R4), In("Quality"))
            .BooleanProperty<&I::get_SmoothEnabled, &I::put_SmoothEnabled>(
                40, "SmoothEnabled", "Whether the ends of what is processed are blended in")
            .Property<&I::get_SmoothTime, &I::put_SmoothTime>(41, "SmoothTime",
                                                              "Length of that blend: ms")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
