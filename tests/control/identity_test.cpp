// What the control and its objects say of themselves, and what late binding makes of it.

#include <set>

#include "automation/text.h"
#include "companions/contracts/ontiva.h"
#include "companions/contracts/pindle.h"
#include "companions/contracts/rimbal.h"
#include "companions/contracts/velto.h"
#include "control/interfaces/events.h"
#include "control/interfaces/library.h"
#include "tests/automation/late_call.h"
#include "tests/control/control_test.h"
#include "tests/support/scratch_registry.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::InterfaceDescription;

// The members with their dispatch identifiers and slots, in the order of the virtual table; those
// of one property together.
std::string MembersOf(const InterfaceDescription& description) {
    std::string text;
    DISPID last = DISPID_UNKNOWN;
    for (const auto& member : description.Members) {
        if (member.Id != last)
            text += (text.empty() ? "" : " ") + std::string(member.Name) + "=" +
                    std::to_string(member.Id);
        if (!description.Events)
            text += (member.Id == last ? "," : "@") + std::to_string(member.Slot);
        last = member.Id;
    }
    return text;
}

// What a host compiled against an earlier version relies on: a member that has arrived keeps its
// identifier and its slot, and one that arrives takes those that were reserved for it.
TEST(Descriptions, KeepTheIdentifiersAndSlotsOfWhatHasArrived) {
    using automation::DescriptionOf;
    const std::pair<const InterfaceDescription*, const char*> kept[] = {
        {&DescriptionOf<interfaces::IMavrin2>(),
         "New=1@7 Open=2@8 Save=3@9 Close=4@10 Undo=5@11 Redo=6@12 "
         "BeginOperations=7@13 EndOperations=8@14 Copy=9@15 Cut=10@16 Paste=11@17 "
         "PasteFromFile=12@18 Mix=13@19 MixFromFile=14@20 DeleteSelect=15@21 "
         "CopyToClipboard=16@22 PasteFromClipboard=17@23 GetAudioArray=18@24 "
         "PutAudioArray=19@25 ConvertSampleType=20@26 Play=21@27 Stop=22@28 "
         "Pause=23@29 Continue=24@30 Record=25@31 "
         "ZoomIn=26@32 ZoomOut=27@33 ZoomFull=28@34 Zoom=29@35 ZoomVertical=30@36 "
         "Refresh=31@37 SaveWaveImage=32@38 LastErrorNum=101@39 Status=102@40 "
         "TempDirectory=103@41,42 TempFileName=104@43,44 FileBufferSize=105@45,46 "
         "UndoRedoCount=106@47,48 UndoEnabled=107@49 RedoEnabled=108@50 "
         "ScaleX=109@51,52 ScaleY=110@53,54 Colors=111@55,56 FileInfo=112@57 "
         "DeviceInput=113@58 DeviceOutput=114@59 Recorder=115@60 Transform=116@61 Position=117@62 "
         "Channels=118@63 Markers=119@64 FileFormat=120@65 "
         "PlaySpeedEnabled=121@66,67 PlaySpeedPercent=122@68,69 "
         "RecordVisualizationType=123@70,71 TypeBorder=124@72,73 TypeView=125@74,75 "
         "MarkerBarEnabled=126@76,77 MarkerBackgroundEnabled=127@78,79 "
         "MarkerToolTipEnabled=128@80,81 MarkerMouseEventEnabled=129@82,83 "
         "MarkerBitmapType=130@84,85 MousePointer=131@86,87 MouseCustom=132@88,89 "
         "MouseEventsEnabled=133@90,91"},
        {&interfaces::ControlEvents(),
         "DblClick=1 MouseDown=2 MouseUp=3 MouseMove=4 Meter=5 BlockOperation=6 ChangePosition=7 "
         "EndPlay=8 ChangePlayPosition=9 "
         "EndOperation=11 MarkerClick=12 NewMarker=13 GainChange=14 ScaleXClick=16 ScaleYClick=17 "
         "ChangeMarker=18"},
        {&DescriptionOf<interfaces::IMavrin2Channel>(),
         "Count=1@7 Num=2@8,9 Visible=3@10,11 Operation=4@12,13"},
        {&DescriptionOf<interfaces::IMavrin2Colors>(),
         "Font=1@7,8 SelectDigitalWaveform=2@9,10 SelectCenterLine=3@11,12 "
         "SelectBackground=4@13,14 SelectAnalogWaveform=5@15,16 Scales=6@17,18 "
         "PlayCursor=7@19,20 Grid=8@21,22 DigitalWaveform=9@23,24 Cursor=10@25,26 "
         "CenterLine=11@27,28 Boundary=12@29,30 Background=13@31,32 "
         "AnalogWaveform=14@33,34 CueMarker=15@35,36 RangeMarker=16@37,38 "
         "RangeMarkerBackground=17@39,40 SpectralLow=18@41,42 SpectralHigh=19@43,44 "
         "SpectralSelectLow=20@45,46 SpectralSelectHigh=21@47,48"},
        {&DescriptionOf<interfaces::IMavrin2Device>(),
         "Count=1@7 Num=2@8,9 Name=3@10 Volume=5@11,12 DeviceLines=6@13 BufferSize=7@14,15 "
         "TimerInterval=8@16,17 BufferCount=9@18,19"},
        {&DescriptionOf<interfaces::IMavrin2DeviceLine>(),
         "Count=1@7 Num=2@8,9 Name=3@10 AdvancedName=4@11 AdvancedCount=5@12 "
         "VolumeBalance=6@13,14 Volume=7@15,16 AdvancedValue=8@17,18 Select=9@19,20"},
        {&DescriptionOf<interfaces::IMavrin2Recorder>(),
         "AccuAttackTime=1@7,8 AccuAttackLevel=2@9,10 AccuReleaseTime=3@11,12 "
         "AccuReleaseLevel=4@13,14 AccuEnabled=5@15,16 NotchFilterEnabled=10@17,18 "
         "HighPassFilterEnabled=11@19,20 LowPassFilterEnabled=12@21,22 "
         "HighPassFilterFrequency=13@23,24 LowPassFilterFrequency=14@25,26 "
         "NotchFilterFrequency=15@27,28 AGCLowLevel=20@29,30 AGCHighLevel=21@31,32 "
         "AGCAttackTime=22@33,34 AGCEnabled=23@35,36"},
        {&DescriptionOf<interfaces::IMavrin2FileInfo>(),
         "GenreToString=1@7 Frequency=5@8 Channels=6@9 Title=7@10,11 Year=8@12,13 Artist=9@14,15 "
         "Album=10@16,17 FormatString=11@18 Composer=12@19,20 URL=13@21,22 Track=14@23,24 "
         "EncodedBy=15@25,26 Comments=16@27,28 Copyright=17@29,30 Genre=18@31,32 GenreS=19@33,34 "
         "OriginalArtist=20@35,36 SaveExtraInfoEnabled=30@37,38 Mp3TagInfoVersion=40@39,40"},
        {&DescriptionOf<interfaces::IMavrin2FileFormat>(),
         "SetFormatFromMenu=1@7 SetFormatLikeSample=2@8 SetFormatPCM=3@9 SetFormatRAW=4@10 "
         "SetFormatALAW=5@11 SetFormatULAW=6@12 SetFormatADPCM=7@13 SetFormatGSM=8@14 "
         "SetFormatVOX=9@15 SetFormatDSP=10@16 SetFormatMP2=11@17 SetFormatMP3=12@18 "
         "SetFormatMP3Ex=13@19 SetFormatOggVorbis=14@20 SetFormatWMA=15@21 SetFormatG721=16@22 "
         "SetFormatG723=17@23 SetFormatG726=18@24 IsFormatMpegAvailable=30@25 "
         "IsFormatOggVorbisAvailable=31@26"},
        {&DescriptionOf<interfaces::IMavrin2LameEnc>(),
         "SetParamsFromCommandLine=1@7 SetParamsFromPreset=2@8 SetParamsFromAltPreset=3@9 "
         "VbrBitrate=10@10,11 VbrQuality=11@12,13 VbrCodingMethod=12@14,15 AbrBitrate=13@16,17 "
         "TypeStereo=14@18,19 EncoderQuality=15@20,21 WritingVBRHeader=16@22,23 "
         "BitReservoir=17@24,25 BlockTypeControl=18@26,27 ShortBlocks=19@28,29 "
         "Emphasis=20@30,31 StrictISOCompliance=21@32,33 StrictlyEnforceMinBitrate=22@34,35 "
         "ATHControlMode=23@36,37 LowPassFrequency=24@38,39 HighPassFrequency=25@40,41 "
         "LowPassWidth=26@42,43 HighPassWidth=27@44,45 ErrorProtection=29@46,47 "
         "Frequency=30@48,49 Channels=31@50,51 Bitrate=32@52,53"},
        {&DescriptionOf<interfaces::IMavrin2Markers>(),
         "Insert=1@7 Delete=2@8 Count=5@9 Num=6@10,11 Length=9@12,13 Position=10@14,15 "
         "Label=13@16,17 Note=14@18,19 Text=15@20,21 Color=16@22,23"},
        {&DescriptionOf<interfaces::IMavrin2Position>(),
         "SecToSamples=1@7 SamplesToSec=2@8 GoToMarker=3@9 StartSelect=4@10,11 EndSelect=5@12,13 "
         "StartView=6@14,15 EndView=7@16,17 Selected=8@18,19 TotalSamples=9@20 "
         "CurrentPosition=10@21,22"},
        {&DescriptionOf<interfaces::IMavrin2Scale>(),
         "Font=1@7,8,9 Type=2@10,11 Visible=3@12,13 Grid=4@14,15 Orientation=5@16,17"},
        {&DescriptionOf<interfaces::IMavrin2Transform>(),
         "Resample=1@7 PitchShift=2@8 TimeStretch=3@9 AddNoise=4@10 Trim=5@11 "
         "DeleteSilence=6@12 InsertSilence=7@13 MixStereoChannels=8@14 Silence=9@15 "
         "Reverse=10@16 Invert=11@17 Amplify=12@18 Fade=13@19 Normalize=14@20 "
         "Vibrato=15@21 Envelope=16@22 Compressor=17@23 Expander=18@24 Delay=19@25 "
         "Flanger=20@26 Chorus=21@27 Phaser=22@28 Reverb=23@29 LowPassFilter=24@30 "
         "HighPassFilter=25@31 BandPassFilter=26@32 NotchFilter=27@33 PeakEQFilter=28@34 "
         "Equalizer=29@35 LowShelfFilter=30@36 HighShelfFilter=31@37 FFTFilter=32@38 "
         "FIRFilter=33@39 SmoothEnabled=40@40,41 SmoothTime=41@42,43"},
        {&DescriptionOf<contracts::IDusoro2>(),
         "OpenSoundFile=1@7 CloseFile=2@8 CreateSoundFile=3@9 WriteBlock=4@10 "
         "ReadBlock=5@11 IsFormatMpegAvailable=6@12 IsFormatOggVorbisAvailable=7@13 "
         "SetPcmFormat=8@14 "
         "SetFormatFromMenu=9@15 SetFormatLikeSample=10@16 SetFormatPCM=11@17 SetFormatRAW=12@18 "
         "SetFormatALAW=13@19 SetFormatULAW=14@20 SetFormatADPCM=15@21 SetFormatGSM=16@22 "
         "SetFormatVOX=17@23 SetFormatDSP=18@24 SetFormatMP2=19@25 SetFormatMP3=20@26 "
         "SetFormatMP3Ex=21@27 SetFormatOggVorbis=22@28 SetFormatWMA=23@29 SetFormatG721=24@30 "
         "SetFormatG723=25@31 SetFormatG726=26@32 GetLength=27@33 "
         "GetSourceFrequency=28@34 GetFormatText=29@35 GetBitsPerSample=30@36 "
         "GetErrorCode=31@37 GetChannels=32@38 GetFrequency=33@39 GetFormatKind=34@40 "
         "SetWmaMode=35@41"},
        {&DescriptionOf<contracts::IOntiva>(),
         "ReadInfo=1@7 WriteInfo=2@8 GenreToString=3@9 Mp3TagInfoVersion=4@10,11 InfoSwitch=5@12 "
         "Album=6@13,14 Artist=7@15,16 Comments=8@17,18 Copyright=9@19,20 Genre=10@21,22 "
         "Title=11@23,24 Year=12@25,26 URL=13@27,28 Track=14@29,30 EncodedBy=15@31,32 "
         "Composer=16@33,34 GenreS=17@35,36 OriginalArtist=18@37,38 InfoAddMarker=19@39 "
         "InfoRemoveMarker=20@40 InfoMarkerCount=21@41 InfoMarkerNum=22@42 "
         "InfoMarkerPosition=23@43 InfoMarkerLength=24@44 InfoMarkerLabel=25@45 "
         "InfoMarkerNote=26@46 InfoMarkerText=27@47 InfoMarkerCountry=28@48 "
         "InfoMarkerLanguage=29@49 InfoMarkerDialect=30@50 InfoMarkerCodePage=31@51"},
        {&DescriptionOf<contracts::IPindleCD2>(),
         "GrabberInit=1@7 GrabberClose=2@8 OpenDrive=3@9 DriveCount=4@10 DriveNum=5@11 "
         "DriveName=6@12 ReadMode=7@13 TrackIndex=8@14 TrackSizeFactor1=9@15 TrackInfo3=10@16 "
         "TrackSizeFactor2=11@17 StartReading=12@18 PrepareTrack=13@19 StopReading=14@20 "
         "ReadBlock=15@21"},
        {&DescriptionOf<contracts::IRimbal2>(),
         "PrepareDevice=1@7 StopDevice=2@8 SetFormat=3@9 ReadBlock=4@10 GetRecentSamples=5@11 "
         "TimerInterval=6@12 SetBufferFrames=7@13 NotchFilterFrequency=8@14,15 "
         "NotchFilterEnabled=9@16,17 HighPassFilterEnabled=10@18,19 LowPassFilterEnabled=11@20,21 "
         "HighPassFilterFrequency=12@22,23 LowPassFilterFrequency=13@24,25 StartDevice=14@26 "
         "DeviceCount=15@27 DeviceName=16@28 DeviceNum=17@29,30 LineCount=18@31 LineName=19@32 "
         "LineNum=20@33,34 LineHasVolume=21@35 LineVolume=22@36,37 LineHasBalance=23@38 "
         "LineBalance=24@39,40 LineHasSwitch=25@41 LineSwitch=26@42,43 LineControlCount=27@44 "
         "LineControlName=28@45 LineControlValue=29@46,47 AccuAttackTime=30@48,49 "
         "AccuAttackLevel=31@50,51 AccuReleaseTime=32@52,53 AccuReleaseLevel=33@54,55 "
         "AccuEnabled=34@56,57 AGCLowLevel=35@58,59 AGCHighLevel=36@60,61 AGCAttackTime=37@62,63 "
         "AGCEnabled=38@64,65"},
        {&DescriptionOf<contracts::IVelto2>(),
         "PrepareDevice=1@7 StopDevice=2@8 QueueBlock=3@9 SetFormat=4@10 GetRecentSamples=5@11 "
         "TimerInterval=6@12 ExtraLatency=7@13 SetOutputChannels=8@14 StartDevice=9@15 "
         "DeviceCount=10@16 DeviceName=11@17 DeviceNum=12@18,19 MasterVolume=13@20,21 "
         "LineCount=14@22 LineName=15@23 LineNum=16@24,25 LineHasVolume=17@26 LineVolume=18@27,28 "
         "LineHasBalance=19@29 LineBalance=20@30,31 LineHasSwitch=21@32 LineSwitch=22@33,34 "
         "LineControlCount=23@35 LineControlName=24@36 LineControlValue=25@37,38"}};
    for (const auto& [description, members] : kept)
        EXPECT_EQ(MembersOf(*description), members) << description->Name;
}

TEST(Descriptions, ExplainEveryMember) {
    for (const auto& make : interfaces::ControlLibrary().Interfaces)
        for (const auto& member : make().Members)
            EXPECT_STRNE(member.Help, "") << make().Name << "." << member.Name;
}

TEST(Descriptions, GiveEveryIdentifierOnce) {
    std::set<std::string> seen;
    const auto fresh = [&](const GUID& id) {
        return seen.insert(std::string(reinterpret_cast<const char*>(&id), sizeof id)).second;
    };
    // The companion's library shares its enumerations with the control's.
    for (const auto* library :
         {&interfaces::ControlLibrary(), &contracts::DusoroLibrary(), &contracts::OntivaLibrary(),
          &contracts::PindleLibrary(), &contracts::RimbalLibrary(), &contracts::VeltoLibrary()}) {
        EXPECT_TRUE(fresh(library->Id));
        for (const auto& one : library->Classes)
            EXPECT_TRUE(fresh(one.Id)) << one.Name;
        for (const auto& one : library->Interfaces)
            EXPECT_TRUE(fresh(one().Id)) << one().Name;
    }
    for (const auto& one : interfaces::ControlLibrary().Enumerations)
        EXPECT_TRUE(fresh(one().Id)) << one().Name;
}

class Identity : public ControlTest {};

TEST_F(Identity, HasPointsForItsEventsAndForPropertyNotifications) {
    const auto container = Control.As<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(interfaces::DIID_IMavrin2Events, point.Put()), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(IID_IPropertyNotifySink, point.Put()), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, point.Put()), CONNECT_E_NOCONNECTION);
}

TEST_F(Identity, TellsItsClassAndDefaultEvents) {
    const auto information = Control.As<IProvideClassInfo2>();
    GUID events{};
    EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualGUID(events, interfaces::DIID_IMavrin2Events));
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(information->GetClassInfo(type.Put()), S_OK);
    Bstr name;
    type->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr);
    EXPECT_EQ(name.Utf8(), "Mavrin2");
    EXPECT_FALSE(Position.As<IProvideClassInfo>());
}

TEST_F(Identity, FailsWithAStatusAndADescriptionForEveryCode) {
    const ScratchRegistry registry;
    ASSERT_EQ(automation::RegisterModule(automation::ThisModule()), S_OK);
    struct {
        LONG Code;
        std::uint32_t Status;
        const char* Description;
    } const cases[] = {{-10, 0x80040301, "Busy error."},
                       {-11, 0x80040302, "Exceeded available memory."},
                       {-12, 0x80040303, "FormatFile error."},
                       {-13, 0x80040304, "Format is not supported."},
                       {-14, 0x80040305, "Output Driver error."},
                       {-15, 0x80040306, "Input Driver error."},
                       {-16, 0x80040307, "Mixer Driver error."},
                       {-17, 0x80040308, "ACM Driver error."},
                       {-18, 0x80040309, "File Access error."},
                       {-19, 0x8004030A, "Invalid operation."},
                       {-20, 0x8004030B, "Invalid parameter(argument)."},
                       {-21, 0x8004030C, "Aspi Driver error."},
                       {-22, 0x8004030D, "Control(object) isn't installed."},
                       {-23, 0x8004030E, "Index is out of range."},
                       {-24, 0x8004030F, "The stream is closed or unavailable."},
                       {-40, 0x80040300, "Unexpected error."},
                       {-99, 0x80040300, "Unexpected error."},
                       {1, 0x80040300, "Unexpected error."}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Code);
        Dusoro->OpenCode = c.Code;
        EXPECT_EQ(static_cast<std::uint32_t>(Open()), c.Status);
        EXPECT_EQ(LastError(), c.Code);
        ComPtr<IErrorInfo> error;
        ASSERT_EQ(GetErrorInfo(0, error.Put()), S_OK);
        GUID iid{};
        Bstr source;
        Bstr description;
        error->GetGUID(&iid);
        error->GetSource(source.Put());
        error->GetDescription(description.Put());
        EXPECT_TRUE(IsEqualGUID(iid, interfaces::IID_IMavrin2));
        EXPECT_EQ(source.Utf8(), "KovMavrin2.Mavrin2.2");
        EXPECT_EQ(description.Utf8(), c.Description);
    }
    EXPECT_EQ(Events->Take(), "");
    Dusoro->OpenCode = 0;
    EXPECT_EQ(Open(), S_OK);
    ComPtr<IErrorInfo> none;
    EXPECT_EQ(GetErrorInfo(0, none.Put()), S_FALSE);
}

TEST_F(Identity, IsServedByLateBindingWithItsDefaults) {
    Dusoro->Source.Samples = Ramp(12000);
    EXPECT_EQ(LateCall(*Control, "open", DISPATCH_METHOD, {"/sound.wav"}).Status, S_OK);
    EXPECT_NE(Dusoro->Calls.find("OpenSoundFile(/sound.wav, 0, 1)"), std::string::npos);
    Select(0, 100);
    // A boolean arrives as the number it is.
    EXPECT_EQ(LateCall(*Control, "Save", DISPATCH_METHOD, {"/out.wav", Bool{763}}).Status, S_OK);
    EXPECT_EQ(Dusoro->Written.size(), 12000u);
    EXPECT_EQ(LateCall(*Control, "Save", DISPATCH_METHOD, {"/out.wav"}).Status,
              DISP_E_BADPARAMCOUNT);
    const LateCall position(*Control, "Position", DISPATCH_PROPERTYGET, std::vector<Value>());
    ASSERT_EQ(position.Result.vt, VT_DISPATCH);
}

}  // namespace
}  // namespace mavrin2::tests
