#include "control/interfaces/colors.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Colors>() {
    using I = interfaces::IMavrin2Colors;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Colors", "Colours of the picture, blue, green and red",
                            interfaces::plan::Colors, &interfaces::ControlLibrary)
            .Get<&I::get_Font>("Font", "Of labels and ticks")
            .Put<&I::put_Font>("Font", "Of labels and ticks")
            .Get<&I::get_SelectDigitalWaveform>("SelectDigitalWaveform",
                                                "Of peaks and points that are selected")
            .Put<&I::put_SelectDigitalWaveform>("SelectDigitalWaveform",
                                                "Of peaks and points that are selected")
            .Get<&I::get_SelectCenterLine>("SelectCenterLine",
                                           "Of the middle of a lane where it is selected")
            .Put<&I::put_SelectCenterLine>("SelectCenterLine",
                                           "Of the middle of a lane where it is selected")
            .Get<&I::get_SelectBackground>("SelectBackground", "Behind the selection")
            .Put<&I::put_SelectBackground>("SelectBackground", "Behind the selection")
            .Get<&I::get_SelectAnalogWaveform>("SelectAnalogWaveform",
                                               "Of the curve between selected samples")
            .Put<&I::put_SelectAnalogWaveform>("SelectAnalogWaveform",
                                               "Of the curve between selected samples")
            .Get<&I::get_Scales>("Scales", "Behind the scales")
            .Put<&I::put_Scales>("Scales", "Behind the scales")
            .Get<&I::get_PlayCursor>("PlayCursor", "Of the place that is played")
            .Put<&I::put_PlayCursor>("PlayCursor", "Of the place that is played")
            .Get<&I::get_Grid>("Grid", "Of the lines across the waveform")
            .Put<&I::put_Grid>("Grid", "Of the lines across the waveform")
            .Get<&I::get_DigitalWaveform>(
                "DigitalWaveform", "Of peaks and points, and of the view in the overview bar")
            .Put<&I::put_DigitalWaveform>(
                "DigitalWaveform", "Of peaks and points, and of the view in the overview bar")
            .Get<&I::get_Cursor>("Cursor", "Of the edit cursor and the selection's edges")
            .Put<&I::put_Cursor>("Cursor", "Of the edit cursor and the selection's edges")
            .Get<&I::get_CenterLine>("CenterLine", "Of the middle of a lane")
            .Put<&I::put_CenterLine>("CenterLine", "Of the middle of a lane")
            .Get<&I::get_Boundary>("Boundary", "Of the lines of full scale")
            .Put<&I::put_Boundary>("Boundary", "Of the lines of full scale")
            .Get<&I::get_Background>("Background", "Behind everything")
            .Put<&I::put_Background>("Background", "Behind everything")
            .Get<&I::get_AnalogWaveform>("AnalogWaveform", "Of the curve between samples")
            .Put<&I::put_AnalogWaveform>("AnalogWaveform", "Of the curve between samples")
            .Get<&I::get_CueMarker>("CueMarker", "Of new markers")
            .Put<&I::put_CueMarker>("CueMarker", "Of new markers")
            .Get<&I::get_RangeMarker>("RangeMarker", "Of markers with a length")
            .Put<&I::put_RangeMarker>("RangeMarker", "Of markers with a length")
            .Get<&I::get_RangeMarkerBackground>("RangeMarkerBackground",
                                                "Behind markers with a length")
            .Put<&I::put_RangeMarkerBackground>("RangeMarkerBackground",
                                                "Behind markers with a length")
            .Get<&I::get_SpectralLow>("SpectralLow", "Hue of quiet sound")
            .Put<&I::put_SpectralLow>("SpectralLow", "Hue of quiet sound")
            .Get<&I::get_SpectralHigh>("SpectralHigh", "Hue of loud sound")
            .Put<&I::put_SpectralHigh>("SpectralHigh", "Hue of loud sound")
            .Get<&I::get_SpectralSelectLow>("SpectralSelectLow", "Hue of quiet selected sound")
            .Put<&I::put_SpectralSelectLow>("SpectralSelectLow", "Hue of quiet selected sound")
            .Get<&I::get_SpectralSelectHigh>("SpectralSelectHigh", "Hue of loud selected sound")
            .Put<&I::put_SpectralSelectHigh>("SpectralSelectHigh", "Hue of loud selected sound")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
