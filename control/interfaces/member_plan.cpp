#include "control/interfaces/member_plan.h"

namespace mavrin2::interfaces::plan {
namespace {

using automation::PlannedMember;

constexpr PlannedMember kMavrin2[] = {{"New", 1},
                                      {"Open", 2},
                                      {"Save", 3},
                                      {"Close", 4},
                                      {"Undo", 5},
                                      {"Redo", 6},
                                      {"BeginOperations", 7},
                                      {"EndOperations", 8},
                                      {"Copy", 9},
                                      {"Cut", 10},
                                      {"Paste", 11},
                                      {"PasteFromFile", 12},
                                      {"Mix", 13},
                                      {"MixFromFile", 14},
                                      {"DeleteSelect", 15},
                                      {"CopyToClipboard", 16},
                                      {"PasteFromClipboard", 17},
                                      {"GetAudioArray", 18},
                                      {"PutAudioArray", 19},
                                      {"ConvertSampleType", 20},
                                      {"Play", 21},
                                      {"Stop", 22},
                                      {"Pause", 23},
                                      {"Continue", 24},
                                      {"Record", 25},
                                      {"ZoomIn", 26},
                                      {"ZoomOut", 27},
                                      {"ZoomFull", 28},
                                      {"Zoom", 29},
                                      {"ZoomVertical", 30},
                                      {"Refresh", 31},
                                      {"SaveWaveImage", 32},
                                      {"LastErrorNum", 101},
                                      {"Status", 102},
                                      {"TempDirectory", 103},
                                      {"TempFileName", 104},
                                      {"FileBufferSize", 105},
                                      {"UndoRedoCount", 106},
                                      {"UndoEnabled", 107},
                                      {"RedoEnabled", 108},
                                      {"ScaleX", 109},
                                      {"ScaleY", 110},
                                      {"Colors", 111},
                                      {"FileInfo", 112},
                                      {"DeviceInput", 113},
                                      {"DeviceOutput", 114},
                                      {"Recorder", 115},
                                      {"Transform", 116},
                                      {"Position", 117},
                                      {"Channels", 118},
                                      {"Markers", 119},
                                      {"FileFormat", 120},
                                      {"PlaySpeedEnabled", 121},
                                      {"PlaySpeedPercent", 122},
                                      {"RecordVisualizationType", 123},
                                      {"TypeBorder", 124},
                                      {"TypeView", 125},
                                      {"MarkerBarEnabled", 126},
                                      {"MarkerBackgroundEnabled", 127},
                                      {"MarkerToolTipEnabled", 128},
                                      {"MarkerMouseEventEnabled", 129},
                                      {"MarkerBitmapType", 130},
                                      {"MousePointer", 131},
                                      {"MouseCustom", 132},
                                      {"MouseEventsEnabled", 133}};

constexpr PlannedMember kMavrin2Events[] = {
    {"DblClick", 1},       {"MouseDown", 2},    {"MouseUp", 3},
    {"MouseMove", 4},      {"Meter", 5},        {"BlockOperation", 6},
    {"ChangePosition", 7}, {"EndPlay", 8},      {"ChangePlayPosition", 9},
    {"EndOperation", 11},  {"MarkerClick", 12}, {"NewMarker", 13},
    {"GainChange", 14},    {"ScaleXClick", 16}, {"ScaleYClick", 17},
    {"ChangeMarker", 18}};

constexpr PlannedMember kChannel[] = {{"Count", 1}, {"Num", 2}, {"Visible", 3}, {"Operation", 4}};

constexpr PlannedMember kColors[] = {{"Font", 1},
                                     {"SelectDigitalWaveform", 2},
                                     {"SelectCenterLine", 3},
                                     {"SelectBackground", 4},
                                     {"SelectAnalogWaveform", 5},
                                     {"Scales", 6},
                                     {"PlayCursor", 7},
                                     {"Grid", 8},
                                     {"DigitalWaveform", 9},
                                     {"Cursor", 10},
                                     {"CenterLine", 11},
                                     {"Boundary", 12},
                                     {"Background", 13},
                                     {"AnalogWaveform", 14},
                                     {"CueMarker", 15},
                                     {"RangeMarker", 16},
                                     {"RangeMarkerBackground", 17},
                                     {"SpectralLow", 18},
                                     {"SpectralHigh", 19},
                                     {"SpectralSelectLow", 20},
                                     {"SpectralSelectHigh", 21}};

constexpr PlannedMember kDevice[] = {{"Count", 1},         {"Num", 2},         {"Name", 3},
                                     {"Volume", 5},        {"DeviceLines", 6}, {"BufferSize", 7},
                                     {"TimerInterval", 8}, {"BufferCount", 9}};

constexpr PlannedMember kDeviceLine[] = {
    {"Count", 1},        {"Num", 2},           {"Name", 3},
    {"AdvancedName", 4}, {"AdvancedCount", 5}, {"VolumeBalance", 6},
    {"Volume", 7},       {"AdvancedValue", 8}, {"Select", 9}};

constexpr PlannedMember kFileInfo[] = {{"GenreToString", 1},
                                       {"Frequency", 5},
                                       {"Channels", 6},
                                       {"Title", 7},
                                       {"Year", 8},
                                       {"Artist", 9},
                                       {"Album", 10},
                                       {"FormatString", 11},
                                       {"Composer", 12},
                                       {"URL", 13},
                                       {"Track", 14},
                                       {"EncodedBy", 15},
                                       {"Comments", 16},
                                       {"Copyright", 17},
                                       {"Genre", 18},
                                       {"GenreS", 19},
                                       {"OriginalArtist", 20},
                                       {"SaveExtraInfoEnabled", 30},
                                       {"Mp3TagInfoVersion", 40}};

constexpr PlannedMember kLameEnc[] = {{"SetParamsFromCommandLine", 1},
                                      {"SetParamsFromPreset", 2},
                                      {"SetParamsFromAltPreset", 3},
                                      {"VbrBitrate", 10},
                                      {"VbrQuality", 11},
                                      {"VbrCodingMethod", 12},
                                      {"AbrBitrate", 13},
                                      {"TypeStereo", 14},
                                      {"EncoderQuality", 15},
                                      {"WritingVBRHeader", 16},
                                      {"BitReservoir", 17},
                                      {"BlockTypeControl", 18},
                                      {"ShortBlocks", 19},
                                      {"Emphasis", 20},
                                      {"StrictISOCompliance", 21},
                                      {"StrictlyEnforceMinBitrate", 22},
                                      {"ATHControlMode", 23},
                                      {"LowPassFrequency", 24},
                                      {"HighPassFrequency", 25},
                                      {"LowPassWidth", 26},
                                      {"HighPassWidth", 27},
                                      {"ErrorProtection", 29},
                                      {"Frequency", 30},
                                      {"Channels", 31},
                                      {"Bitrate", 32}};

constexpr PlannedMember kMarkers[] = {{"Insert", 1}, {"Delete", 2},    {"Count", 5},  {"Num", 6},
                                      {"Length", 9}, {"Position", 10}, {"Label", 13}, {"Note", 14},
                                      {"Text", 15},  {"Color", 16}};

constexpr PlannedMember kPosition[] = {
    {"SecToSamples", 1}, {"SamplesToSec", 2},    {"GoToMarker", 3}, {"StartSelect", 4},
    {"EndSelect", 5},    {"StartView", 6},       {"EndView", 7},    {"Selected", 8},
    {"TotalSamples", 9}, {"CurrentPosition", 10}};

constexpr PlannedMember kRecorder[] = {
    {"AccuAttackTime", 1},          {"AccuAttackLevel", 2},       {"AccuReleaseTime", 3},
    {"AccuReleaseLevel", 4},        {"AccuEnabled", 5},           {"NotchFilterEnabled", 10},
    {"HighPassFilterEnabled", 11},  {"LowPassFilterEnabled", 12}, {"HighPassFilterFrequency", 13},
    {"LowPassFilterFrequency", 14}, {"NotchFilterFrequency", 15}, {"AGCLowLevel", 20},
    {"AGCHighLevel", 21},           {"AGCAttackTime", 22},        {"AGCEnabled", 23}};

constexpr PlannedMember kScale[] = {
    {"Font", 1}, {"Type", 2}, {"Visible", 3}, {"Grid", 4}, {"Orientation", 5}};

constexpr PlannedMember kFileFormat[] = {
    {"SetFormatFromMenu", 1},      {"SetFormatLikeSample", 2},
    {"SetFormatPCM", 3},           {"SetFormatRAW", 4},
    {"SetFormatALAW", 5},          {"SetFormatULAW", 6},
    {"SetFormatADPCM", 7},         {"SetFormatGSM", 8},
    {"SetFormatVOX", 9},           {"SetFormatDSP", 10},
    {"SetFormatMP2", 11},          {"SetFormatMP3", 12},
    {"SetFormatMP3Ex", 13},        {"SetFormatOggVorbis", 14},
    {"SetFormatWMA", 15},          {"SetFormatG721", 16},
    {"SetFormatG723", 17},         {"SetFormatG726", 18},
    {"IsFormatMpegAvailable", 30}, {"IsFormatOggVorbisAvailable", 31}};

constexpr PlannedMember kTransform[] = {{"Resample", 1},
                                        {"PitchShift", 2},
                                        {"TimeStretch", 3},
                                        {"AddNoise", 4},
                                        {"Trim", 5},
                                        {"DeleteSilence", 6},
                                        {"InsertSilence", 7},
                                        {"MixStereoChannels", 8},
                                        {"Silence", 9},
                                        {"Reverse", 10},
                                        {"Invert", 11},
                                        {"Amplify", 12},
                                        {"Fade", 13},
                                        {"Normalize", 14},
                                        {"Vibrato", 15},
                                        {"Envelope", 16},
                                        {"Compressor", 17},
                                        {"Expander", 18},
                                        {"Delay", 19},
                                        {"Flanger", 20},
                                        {"Chorus", 21},
                                        {"Phaser", 22},
                                        {"Reverb", 23},
                                        {"LowPassFilter", 24},
                                        {"HighPassFilter", 25},
                                        {"BandPassFilter", 26},
                                        {"NotchFilter", 27},
                                        {"PeakEQFilter", 28},
                                        {"Equalizer", 29},
                                        {"LowShelfFilter", 30},
                                        {"HighShelfFilter", 31},
                                        {"FFTFilter", 32},
                                        {"FIRFilter", 33},
                                        {"SmoothEnabled", 40},
                                        {"SmoothTime", 41}};

}  // namespace

const automation::MemberPlan Mavrin2 = kMavrin2;
const automation::MemberPlan Mavrin2Events = kMavrin2Events;
const automation::MemberPlan Channel = kChannel;
const automation::MemberPlan Colors = kColors;
const automation::MemberPlan Device = kDevice;
const automation::MemberPlan DeviceLine = kDeviceLine;
const automation::MemberPlan FileInfo = kFileInfo;
const automation::MemberPlan LameEnc = kLameEnc;
const automation::MemberPlan Markers = kMarkers;
const automation::MemberPlan Position = kPosition;
const automation::MemberPlan Recorder = kRecorder;
const automation::MemberPlan Scale = kScale;
const automation::MemberPlan FileFormat = kFileFormat;
const automation::MemberPlan Transform = kTransform;

}  // namespace mavrin2::interfaces::plan
