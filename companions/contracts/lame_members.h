#pragma once

#include "automation/interface_builder.h"

namespace mavrin2::contracts {

// Describes the members that the encoder's settings and the control's object of them share.
template <class I>
automation::InterfaceBuilder<I>& AddLameMembers(automation::InterfaceBuilder<I>& builder) {
    using automation::In;
    return builder
        .template Method<&I::SetParamsFromCommandLine>(
            1, "SetParamsFromCommandLine", "Reads options as LAME's own program has them",
            In("CommandLine"))
        .template Method<&I::SetParamsFromPreset>(2, "SetParamsFromPreset",
                                                  "0 default, 1 phone ... 10 studio, 11 r3mix",
                                                  In("Preset").Default(0))
        .template Method<&I::SetParamsFromAltPreset>(
            3, "SetParamsFromAltPreset",
            "1 fast standard, 2 standard, 3 fast extreme, 4 extreme, 5 insane",
            In("Preset").Default(0))
        .template Property<&I::get_VbrBitrate, &I::put_VbrBitrate>(
            10, "VbrBitrate",
            "Largest bit rate of variable rates in kbit/s; 0 is the encoder's choice")
        .template Property<&I::get_VbrQuality, &I::put_VbrQuality>(
            11, "VbrQuality", "Quality of variable rates, 0 best ... 9")
        .template Property<&I::get_VbrCodingMethod, &I::put_VbrCodingMethod>(
            12, "VbrCodingMethod",
            "-1 constant, 0 default, 1 old, 2 new, 3 mtrh, 4 average bit rate")
        .template Property<&I::get_AbrBitrate, &I::put_AbrBitrate>(13, "AbrBitrate",
                                                                   "Average bit rate in kbit/s")
        .template Property<&I::get_TypeStereo, &I::put_TypeStereo>(
            14, "TypeStereo", "1 simple, 2 joint, 3 forced joint stereo, 4 two channels")
        .template Property<&I::get_EncoderQuality, &I::put_EncoderQuality>(
            15, "EncoderQuality", "Care of the encoder, 0 best and slowest ... 9")
        .template BooleanProperty<&I::get_WritingVBRHeader, &I::put_WritingVBRHeader>(
            16, "WritingVBRHeader", "Whether a first frame states the length")
        .template BooleanProperty<&I::get_BitReservoir, &I::put_BitReservoir>(
            17, "BitReservoir", "Whether frames may use room that others left")
        .template BooleanProperty<&I::get_BlockTypeControl, &I::put_BlockTypeControl>(
            18, "BlockTypeControl", "Whether the channels may have blocks of different types")
        .template BooleanProperty<&I::get_ShortBlocks, &I::put_ShortBlocks>(
            19, "ShortBlocks", "Whether short blocks are used")
        .template Property<&I::get_Emphasis, &I::put_Emphasis>(
            20, "Emphasis", "Emphasis that the file states, 0 none, 1 50/15 us, 3 CCITT")
        .template BooleanProperty<&I::get_StrictISOCompliance, &I::put_StrictISOCompliance>(
            21, "StrictISOCompliance", "Whether the standard's limit of frames is kept")
        .template BooleanProperty<&I::get_StrictlyEnforceMinBitrate,
                                  &I::put_StrictlyEnforceMinBitrate>(
            22, "StrictlyEnforceMinBitrate", "Whether silence too has the smallest bit rate")
        .template Property<&I::get_ATHControlMode, &I::put_ATHControlMode>(
            23, "ATHControlMode",
            "Threshold of hearing: 0 as usual, 1 alone, 2 not used, 3 in short blocks alone")
        .template Property<&I::get_LowPassFrequency, &I::put_LowPassFrequency>(
            24, "LowPassFrequency", "Highest frequency in hertz; -1 is the encoder's choice, 0 off")
        .template Property<&I::get_HighPassFrequency, &I::put_HighPassFrequency>(
            25, "HighPassFrequency", "Lowest frequency in hertz; -1 is the encoder's choice, 0 off")
        .template Property<&I::get_LowPassWidth, &I::put_LowPassWidth>(
            26, "LowPassWidth", "Width of the low-pass filter's slope in hertz")
        .template Property<&I::get_HighPassWidth, &I::put_HighPassWidth>(
            27, "HighPassWidth", "Width of the high-pass filter's slope in hertz")
        .template BooleanProperty<&I::get_ErrorProtection, &I::put_ErrorProtection>(
            29, "ErrorProtection", "Whether each frame has a checksum")
        .template Property<&I::get_Frequency, &I::put_Frequency>(30, "Frequency",
                                                                 "Sample rate in hertz")
        .template Property<&I::get_Channels, &I::put_Channels>(31, "Channels", "1 or 2")
        .template Property<&I::get_Bitrate, &I::put_Bitrate>(
            32, "Bitrate",
            "Constant bit rate, or the smallest of variable ones, in kbit/s; 0 is the "
            "encoder's choice");
}

}  // namespace mavrin2::contracts
