#pragma once

// The one table of the picture's colours, in the order of the interface: name, dispatch identifier,
// value in a new object, what the picture does when a host changes it (objects/colors.h), help. The
// interface, its description, the object, the view's settings and the reading of a host's own
// object are all made from it.

// 0x00BBGGRR. Scales begins as the system's button face, of which this is the usual value.
#define MAVRIN2_COLORS(COLOR)                                                               \
    COLOR(Font, 1, 0x000000, RebuildPens, "Labels and ticks")                               \
    COLOR(SelectDigitalWaveform, 2, 0x604720, RebuildPens, "Selected peaks and samples")    \
    COLOR(SelectCenterLine, 3, 0x2626A4, RebuildPens, "Center line in the selection")       \
    COLOR(SelectBackground, 4, 0xFFFFFF, RenderBackground, "Background of the selection")   \
    COLOR(SelectAnalogWaveform, 5, 0xAC0000, RebuildPens, "Curve between selected samples") \
    COLOR(Scales, 6, 0xC8D0D4, RebuildPens, "Background of the scales")                     \
    COLOR(PlayCursor, 7, 0xDCDCDC, Redraw, "Play cursor")                                   \
    COLOR(Grid, 8, 0x4F2C04, RebuildPens, "Grid lines")                                     \
    COLOR(DigitalWaveform, 9, 0xABF01C, RebuildPens, "Peaks, samples and the overview bar") \
    COLOR(Cursor, 10, 0x00FFFF, Redraw, "Edit cursor and edges of the selection")           \
    COLOR(CenterLine, 11, 0x2626A4, RebuildPens, "Center line of a lane")                   \
    COLOR(Boundary, 12, 0x9F876F, Redraw, "Lines at full scale")                            \
    COLOR(Background, 13, 0x000000, RebuildPens, "Background of the waveform")              \
    COLOR(AnalogWaveform, 14, 0x567E00, RebuildPens, "Curve between samples")               \
    COLOR(CueMarker, 15, 0x7D7DFF, Redraw, "New markers")                                   \
    COLOR(RangeMarker, 16, 0xFFBC24, Redraw, "Markers with a length")                       \
    COLOR(RangeMarkerBackground, 17, 0x414141, RenderBackground, "Background of range markers")

// The ends of the spectral picture's colour ramp: hues on a circle of 140. For loud sound they
// count backwards from 100 + the low end.
#define MAVRIN2_HUES(HUE)                                                  \
    HUE(SpectralLow, 18, 35, Redraw, "Hue of quiet sound")                 \
    HUE(SpectralHigh, 19, 135, Redraw, "Hue of loud sound")                \
    HUE(SpectralSelectLow, 20, 100, Redraw, "Hue of quiet selected sound") \
    HUE(SpectralSelectHigh, 21, 200, Redraw, "Hue of loud selected sound")
