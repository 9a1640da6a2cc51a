#include "companions/dusoro/backends/lame/lame_parameters.h"

#include <algorithm>

namespace mavrin2::dusoro {
namespace {

using contracts::LameSettings;

// In proportion to the rate, and never so little that the frames could not hold the tag that states
// the length.
int UsualBitRate(PcmFormat format) {
    const bool stereo = format.Channels == 2;
    if (format.Rate >= 32000) return stereo ? 192 : 96;
    if (format.Rate >= 16000) return stereo ? 96 : 64;
    return stereo ? 64 : 32;
}

// A preset of LAME's own, as long as the method is still the one that came with it; 0 for none.
int OwnPreset(const LameSettings& settings) {
    const bool fast = settings.VbrCodingMethod == 2;
    const bool old = settings.VbrCodingMethod == 1;
    switch (settings.PresetKind) {
        case 1:
            return settings.VbrCodingMethod == 3 ? R3MIX : 0;
        case 2:
            return fast ? STANDARD_FAST : old ? STANDARD : 0;
        case 3:
            return fast ? EXTREME_FAST : old ? EXTREME : 0;
        case 4:
            return old ? INSANE : 0;
        default:
            return 0;
    }
}

vbr_mode MethodOf(const LameSettings& settings) {
    switch (settings.VbrCodingMethod) {
        case 0:
            return vbr_default;
        case 1:
            return vbr_rh;
        case 2:
        case 3:
            return vbr_mtrh;
        case 4:
            return vbr_abr;
        default:
            return settings.VbrCodingMethod < 0 ? vbr_off : vbr_abr;
    }
}

void ApplyStereo(lame_global_flags* encoder, const LameSettings& settings, std::int32_t channels) {
    MPEG_mode mode = MONO;
    if (channels == 2) {
        switch (settings.TypeStereo) {
            case 2:
                mode = JOINT_STEREO;
                break;
            case 3:
                mode = JOINT_STEREO;
                lame_set_force_ms(encoder, 1);
                break;
            default:
                mode = settings.TypeStereo > 3 ? DUAL_CHANNEL : STEREO;
        }
    }
    lame_set_mode(encoder, mode);
}

// Limits that leave no choice are dropped.
void ApplyLimits(lame_global_flags* encoder, const LameSettings& settings, std::int32_t rate) {
    const int least = settings.Bitrate > 0 ? NearestMpegRate(3, rate, settings.Bitrate) : 0;
    const int most = settings.VbrBitrate > 0 ? NearestMpegRate(3, rate, settings.VbrBitrate) : 0;
    if (most > 0 && least >= most) return;
    if (least > 0) lame_set_VBR_min_bitrate_kbps(encoder, least);
    if (most > 0) lame_set_VBR_max_bitrate_kbps(encoder, most);
}

void ApplyRates(lame_global_flags* encoder, const LameSettings& settings, std::int32_t rate) {
    const vbr_mode method = MethodOf(settings);
    lame_set_VBR(encoder, method);
    if (method == vbr_off) {
        if (settings.Bitrate > 0)
            lame_set_brate(encoder, NearestMpegRate(3, rate, settings.Bitrate));
        return;
    }
    lame_set_VBR_q(encoder, std::clamp<int>(settings.VbrQuality, 0, 9));
    if (method == vbr_abr) {
        const int least = NearestMpegRate(3, rate, 0);
        const int most = NearestMpegRate(3, rate, 320);
        lame_set_VBR_mean_bitrate_kbps(encoder, std::clamp<int>(settings.AbrBitrate, least, most));
    }
    ApplyLimits(encoder, settings, rate);
}

// −1 is LAME's choice here and 0 is off; for LAME it is the other way round.
int PassFrequency(std::int32_t hertz, std::int32_t rate) {
    if (hertz < 0) return 0;
    return hertz == 0 ? -1 : std::min(hertz, rate / 2);
}

void ApplyFilters(lame_global_flags* encoder, const LameSettings& settings, std::int32_t rate) {
    lame_set_lowpassfreq(encoder, PassFrequency(settings.LowPassFrequency, rate));
    lame_set_highpassfreq(encoder, PassFrequency(settings.HighPassFrequency, rate));
    if (settings.LowPassWidth > 0)
        lame_set_lowpasswidth(encoder, std::min(settings.LowPassWidth, rate / 2));
    if (settings.HighPassWidth > 0)
        lame_set_highpasswidth(encoder, std::min(settings.HighPassWidth, rate / 2));
}

// The standard keeps 2 for later.
int EmphasisOf(std::int16_t emphasis) {
    return emphasis <= 0 ? 0 : emphasis <= 2 ? 1 : 3;
}

}  // namespace

void ApplyConstantRate(lame_global_flags* encoder, const OutputFormat& format) {
    const int bitRate = format.Rates.Nominal;
    lame_set_mode(encoder, format.Format.Channels == 2 ? JOINT_STEREO : MONO);
    lame_set_brate(encoder, bitRate > 0 ? bitRate : UsualBitRate(format.Format));
    lame_set_quality(encoder, 5);
    // The frame in front from which readers know the exact length.
    lame_set_bWriteVbrTag(encoder, 1);
}

void ApplySettings(lame_global_flags* encoder, const LameSettings& settings, std::int32_t rate,
                   std::int32_t channels) {
    ApplyStereo(encoder, settings, channels);
    if (const int preset = OwnPreset(settings)) {
        lame_set_preset(encoder, preset);
    } else {
        ApplyRates(encoder, settings, rate);
        lame_set_quality(encoder, std::clamp<int>(settings.EncoderQuality, 0, 9));
    }
    ApplyFilters(encoder, settings, rate);
    lame_set_bWriteVbrTag(encoder, settings.WritingVbrHeader != 0);
    lame_set_error_protection(encoder, settings.ErrorProtection != 0);
    lame_set_disable_reservoir(encoder, settings.NoBitReservoir != 0);
    if (settings.BlockTypeControl != 0) lame_set_allow_diff_short(encoder, 1);
    if (settings.NoShortBlocks != 0) lame_set_no_short_blocks(encoder, 1);
    if (settings.StrictIsoCompliance != 0) lame_set_strict_ISO(encoder, MDB_STRICT_ISO);
    lame_set_VBR_hard_min(encoder, settings.StrictMinBitrate != 0);
    lame_set_ATHonly(encoder, settings.AthControlMode == 1);
    lame_set_noATH(encoder, settings.AthControlMode == 2);
    lame_set_ATHshort(encoder, settings.AthControlMode == 3);
    lame_set_emphasis(encoder, EmphasisOf(settings.Emphasis));
}

}  // namespace mavrin2::dusoro
