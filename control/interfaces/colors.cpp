#include "control/interfaces/colors.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Colors>() {
    using I = interfaces::IMavrin2Colors;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Colors", "Colours of the picture, blue, green and red",
                            &interfaces::ControlLibrary)
            .Property<&I::get_Font, &I::put_Font>(1, "Font", "Of labels and ticks")
            .Property<&I::get_SelectDigitalWaveform, &I::put_SelectDigitalWaveform>(
                2, "SelectDigitalWaveform", "Of peaks and points that are selected")
            .Property<&I::get_SelectCenterLine, &I::put_SelectCenterLine>(
                3, "SelectCenterLine", "Of the middle of a lane where it is selected")
            .Property<&I::get_SelectBackground, &I::put_SelectBackground>(4, "SelectBackground",
                                                                          "Behind the selection")
            .Property<&I::get_SelectAnalogWaveform, &I::put_SelectAnalogWaveform>(
                5, "SelectAnalogWaveform", "Of the curve between selected samples")
            .Property<&I::get_Scales, &I::put_Scales>(6, "Scales", "Behind the scales")
            .Property<&I::get_PlayCursor, &I::put_PlayCursor>(7, "PlayCursor",
                                                              "Of the place that is played")
            .Property<&I::get_Grid, &I::put_Grid>(8, "Grid", "Of the lines across the waveform")
            .Property<&I::get_DigitalWaveform, &I::put_DigitalWaveform>(
                9, "DigitalWaveform", "Of peaks and points, and of the view in the overview bar")
            .Property<&I::get_Cursor, &I::put_Cursor>(
                10, "Cursor", "Of the edit cursor and the selection's edges")
            .Property<&I::get_CenterLine, &I::put_CenterLine>(11, "CenterLine",
                                                              "Of the middle of a lane")
            .Property<&I::get_Boundary, &I::put_Boundary>(12, "Boundary",
                                                          "Of the lines of full scale")
            .Property<&I::get_Background, &I::put_Background>(13, "Background", "Behind everything")
            .Property<&I::get_AnalogWaveform, &I::put_AnalogWaveform>(
                14, "AnalogWaveform", "Of the curve between samples")
            .Property<&I::get_CueMarker, &I::put_CueMarker>(15, "CueMarker", "Of new markers")
            .Property<&I::get_RangeMarker, &I::put_RangeMarker>(16, "RangeMarker",
                                                                "Of markers with a length")
            .Property<&I::get_RangeMarkerBackground, &I::put_RangeMarkerBackground>(
                17, "RangeMarkerBackground", "Behind markers with a length")
            .Property<&I::get_SpectralLow, &I::put_SpectralLow>(18, "SpectralLow",
                                                                "Hue of quiet sound")
            .Property<&I::get_SpectralHigh, &I::put_SpectralHigh>(19, "SpectralHigh",
                                                                  "Hue of loud sound")
            .Property<&I::get_SpectralSelectLow, &I::put_SpectralSelectLow>(
                20, "SpectralSelectLow", "Hue of quiet selected sound")
            .Property<&I::get_SpectralSelectHigh, &I::put_SpectralSelectHigh>(
                21, "SpectralSelectHigh", "Hue of loud selected sound")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
