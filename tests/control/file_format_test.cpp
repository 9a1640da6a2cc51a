// The FileFormat object, which hands a host's choice on, and LameEnc, which keeps settings.

#include <random>

#include "automation/text.h"
#include "tests/automation/late_call.h"
#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using automation::Bstr;
using automation::ComPtr;
using contracts::LameSettings;
using interfaces::IMavrin2FileFormat;
using interfaces::IMavrin2LameEnc;

class FileFormatTest : public ControlTest {
protected:
    FileFormatTest() { EXPECT_EQ(Control->get_FileFormat(format_.Put()), S_OK); }

    // What the companion was asked, and what the call gave.
    std::pair<std::string, Value> Call(const char* name, const std::vector<Value>& arguments) {
        Dusoro->Calls.clear();
        const auto answer = LateCall(*format_, name, DISPATCH_METHOD, arguments);
        EXPECT_EQ(answer.Status, S_OK) << name;
        return {Dusoro->Calls, FromVariant(answer.Result)};
    }
    static std::vector<Value> Numbers(int count) {
        std::vector<Value> numbers;
        for (int i = 0; i < count; ++i)
            numbers.push_back(LONG{40 + i});
        return numbers;
    }

    ComPtr<IMavrin2FileFormat> format_;
};

TEST_F(FileFormatTest, HandsEveryChoiceOnAndTakesTheDescription) {
    struct Case {
        const char* Name;
        int Parameters;
        const char* Defaults;  // as the companion gets them
    };
    const Case cases[] = {{"SetFormatPCM", 3, "8000, 1, 16"},
                          {"SetFormatRAW", 4, "1, 44100, 2, 16"},
                          {"SetFormatALAW", 2, "8000, 1"},
                          {"SetFormatULAW", 2, "8000, 1"},
                          {"SetFormatADPCM", 2, "44100, 2"},
                          {"SetFormatGSM", 1, "8000"},
                          {"SetFormatVOX", 1, "8000"},
                          {"SetFormatDSP", 0, ""},
                          {"SetFormatMP2", 3, "44100, 128, 2"},
                          {"SetFormatMP3", 3, "44100, 128, 2"},
                          {"SetFormatOggVorbis", 6, "44100, 2, 128, 0, 0, 65535"},
                          {"SetFormatG721", 1, "8000"},
                          {"SetFormatG723", 2, "8000, 3"},
                          {"SetFormatG726", 2, "8000, 4"}};
    const std::string given = "40, 41, 42, 43, 44, 45";
    for (const Case& one : cases) {
        const auto call = [&](const std::string& arguments) {
            return std::string(one.Name) + "(" + arguments + "); GetFormatText()";
        };
        EXPECT_EQ(Call(one.Name, {}).first, call(one.Defaults));
        const std::size_t length = one.Parameters == 0 ? 0 : 4 * one.Parameters - 2;
        EXPECT_EQ(Call(one.Name, Numbers(one.Parameters)).first, call(given.substr(0, length)));
    }
    EXPECT_EQ(Call("SetFormatWMA", {}).first, "SetWmaMode(1); SetFormatWMA(39); GetFormatText()");
    EXPECT_EQ(Call("SetFormatLikeSample", {std::string("/ä.wav")}).first,
              "SetFormatLikeSample(/ä.wav); GetFormatText()");
    EXPECT_EQ(Call("SetFormatFromMenu", {}).second, Value(Bool{VARIANT_TRUE}));
    EXPECT_EQ(FormatString(), "Fake sound");
    const auto [mpeg, yes] = Call("IsFormatMpegAvailable", Numbers(3));
    EXPECT_EQ(mpeg, "IsFormatMpegAvailable(40, 41, 42)");
    EXPECT_EQ(yes, Value(Bool{VARIANT_TRUE}));
    EXPECT_EQ(Call("IsFormatOggVorbisAvailable", Numbers(3)).first,
              "IsFormatOggVorbisAvailable(40, 41, 42, 0, 0)");
}

TEST_F(FileFormatTest, DoesNothingAlone) {
    const ComPtr<IMavrin2FileFormat> kept = format_;
    const auto alone = objects::CMavrin2FileFormat::Make();
    Dusoro->Calls.clear();
    format_.Reset();
    End();
    for (IMavrin2FileFormat* object : {kept.Get(), static_cast<IMavrin2FileFormat*>(alone.Get())}) {
        VARIANT_BOOL answer = VARIANT_TRUE;
        EXPECT_EQ(object->SetFormatFromMenu(&answer), S_OK);
        EXPECT_EQ(answer, VARIANT_FALSE);
        EXPECT_EQ(object->SetFormatWMA(3), S_OK);
    }
    EXPECT_EQ(Dusoro->Calls.find("SetFormat"), std::string::npos);
}

TEST_F(FileFormatTest, KeepsTheSettingsOfMp3UntilOthersCome) {
    const auto settings = [&] {
        return objects::CMavrin2LameEnc::Make(Environment().CreateCompanion);
    };
    const auto references = [](IMavrin2LameEnc& object) {
        object.AddRef();
        return object.Release();
    };
    const auto first = settings();
    const auto second = settings();
    EXPECT_EQ(format_->SetFormatMP3Ex(first.Get()), S_OK);
    EXPECT_EQ(Dusoro->Calls, "SetFormatMP3Ex(); GetFormatText()");
    EXPECT_EQ(Dusoro->Lame.Get(), static_cast<contracts::ILameSettings*>(Lame.Get()));
    EXPECT_EQ(references(*first.Get()), 2u);
    EXPECT_EQ(format_->SetFormatMP3Ex(second.Get()), S_OK);
    EXPECT_EQ(references(*first.Get()), 1u);
    EXPECT_EQ(format_->SetFormatMP3Ex(second.Get()), S_OK);
    EXPECT_EQ(format_->SetFormatMP3Ex(nullptr), S_OK);
    EXPECT_EQ(references(*second.Get()), 2u);
    format_.Reset();
    End();
    EXPECT_EQ(references(*second.Get()), 1u);
}

class LameEncTest : public ControlTest {
protected:
    LONG Get(const char* name) {
        const Value value =
            FromVariant(LateCall(*lame_, name, DISPATCH_PROPERTYGET, std::vector<Value>()).Result);
        if (const auto* number = std::get_if<SHORT>(&value)) return *number;
        if (const auto* truth = std::get_if<Bool>(&value)) return truth->Bits;
        return std::get<LONG>(value);
    }
    void Read(const std::string& line) {
        EXPECT_EQ(lame_->SetParamsFromCommandLine(Bstr(line).Get()), S_OK);
    }

    ComPtr<objects::CMavrin2LameEnc> lame_ =
        objects::CMavrin2LameEnc::Make(Environment().CreateCompanion);
};

TEST_F(LameEncTest, KeepsEveryPropertyAndTellsTheCompanion) {
    EXPECT_EQ(Get("VbrBitrate"), 192);
    EXPECT_EQ(Get("WritingVBRHeader"), 1);
    EXPECT_EQ(Get("BitReservoir"), 1);
    for (const auto& member : automation::DescriptionOf<IMavrin2LameEnc>().Members) {
        if (member.Kind != INVOKE_PROPERTYPUT) continue;
        SCOPED_TRACE(member.Name);
        const VARTYPE type = member.Parameters.front().Type.Type;
        const std::string name = member.Name;
        const bool wide =
            name == "Frequency" || name.ends_with("Width") || name.ends_with("PassFrequency");
        const bool inverted = name == "BitReservoir" || name == "ShortBlocks";
        for (const LONG given : {0, -1, 77777}) {
            if (given > 32767 && type != VT_I4) continue;
            const Value value = type == VT_I4   ? Value(given)
                                : type == VT_I2 ? Value(static_cast<SHORT>(given))
                                                : Value(Bool{static_cast<VARIANT_BOOL>(given)});
            EXPECT_EQ(
                LateCall(*lame_, member.Name, DISPATCH_PROPERTYPUT, {value}, {DISPID_PROPERTYPUT})
                    .Status,
                S_OK);
            const LONG kept = inverted ? given != 0 : wide ? given : static_cast<SHORT>(given);
            EXPECT_EQ(Get(member.Name), kept);
            EXPECT_EQ(
                FromVariant(LateCall(*Lame, member.Name, DISPATCH_PROPERTYGET, std::vector<Value>())
                                .Result),
                FromVariant(
                    LateCall(*lame_, member.Name, DISPATCH_PROPERTYGET, std::vector<Value>())
                        .Result));
        }
    }
    lame_->SetParamsFromPreset(3);
    EXPECT_EQ(Lame->Preset, 3);
    lame_->SetParamsFromAltPreset(3);
    EXPECT_EQ(Lame->Preset, -3);
    Read("-b 192 ä");
    EXPECT_EQ(Lame->Line, "-b 192 ä");
    Read("");
    EXPECT_EQ(Lame->Line, "");
    EXPECT_EQ(Get("Bitrate"), 192);
}

TEST_F(LameEncTest, WorksWithoutItsCompanion) {
    MissingCompanion = contracts::CLSID_KovDusoroLame;
    lame_ = objects::CMavrin2LameEnc::Make(Environment().CreateCompanion);
    Read("-b 64");
    EXPECT_EQ(lame_->put_Emphasis(3), S_OK);
    EXPECT_EQ(Get("Bitrate"), 64);
    EXPECT_EQ(Get("Emphasis"), 3);
}

LameSettings After(const std::string& line) {
    LameSettings settings;
    contracts::ApplyLameCommandLine(settings, line);
    return settings;
}

LameSettings Default() {
    LameSettings settings;
    contracts::ApplyLamePreset(settings, 0);
    return settings;
}

TEST(LameCommandLine, IsReadAsItsOptionsSay) {
    using S = LameSettings;
    const std::pair<const char*, void (*)(S&)> cases[] = {
        {"-b 192 -m j --vbr-new -v 2",
         [](S& s) {
             s.Bitrate = 192;
             s.TypeStereo = s.VbrCodingMethod = s.VbrQuality = 2;
         }},
        {"--preset cd --lowpass 19.5",
         [](S& s) {
             contracts::ApplyLamePreset(s, 9);
             s.LowPassFrequency = 19500;
         }},
        {"--lowpass -5", [](S& s) { s.LowPassFrequency = 0; }},
        {"--lowpass", [](S&) {}},
        {"-b", [](S&) {}},
        {"-b 70000 -B -1", [](S& s) { s.Bitrate = 4464, s.VbrBitrate = -1; }},
        {"-b  192", [](S& s) { s.Bitrate = 0; }},
        {" -B +64x", [](S& s) { s.VbrBitrate = 64; }},
        {"--abr 130 -f",
         [](S& s) {
             s.VbrCodingMethod = 4;
             s.AbrBitrate = 130;
             s.VbrQuality = 9;
             s.EncoderQuality = 1;
         }},
        {"-m x -m d", [](S& s) { s.TypeStereo = 4; }},
        {"-m m -h --comp -b 8",
         [](S& s) {
             s.Channels = 1;
             s.VbrQuality = 0;
             s.EncoderQuality = 3;
             s.Bitrate = 8;
         }},
        {"--preset standard", [](S& s) { s.VbrCodingMethod = 0; }},
        {"--alt-preset fast extreme -q 9",
         [](S& s) {
             contracts::ApplyLamePreset(s, 103);
             s.EncoderQuality = 9;
         }},
        {"--alt-preset fast -t", [](S& s) { s.VbrCodingMethod = 0, s.WritingVbrHeader = 0; }},
        {"--alt-preset insane", [](S& s) { contracts::ApplyLamePreset(s, 105); }},
        {"--preset r3mix -k",
         [](S& s) {
             contracts::ApplyLamePreset(s, 11);
             s.LowPassFrequency = -1;
         }},
        {"--resample 22.05 --highpass .05 --highpass-width 1e0",
         [](S& s) {
             s.Frequency = 22050;
             s.HighPassFrequency = 50;
             s.HighPassWidth = 1000;
         }},
        {"--resample inf --lowpass nan", [](S& s) { s.Frequency = 0, s.LowPassFrequency = 0; }},
        {"--ath --noath --athshort -F -p --nores -noshort --strictly-enforce-ISO -d -e 5 -vbr",
         [](S& s) {
             s.AthControlMode = 3;
             s.StrictMinBitrate = s.ErrorProtection = s.NoBitReservoir = s.NoShortBlocks = 1;
             s.StrictIsoCompliance = s.BlockTypeControl = 1;
             s.Emphasis = 5;
             s.VbrCodingMethod = 0;
         }},
        {"-B\t64 --VBR-NEW -b192", [](S&) {}},
    };
    for (const auto& [line, change] : cases) {
        LameSettings expected = Default();
        change(expected);
        EXPECT_EQ(After(line), expected) << line;
    }
    EXPECT_EQ(After(""), LameSettings()) << "nothing changes";
    std::string many;
    for (int i = 0; i < 125; ++i)
        many += "x ";
    EXPECT_EQ(After(many + "-b 64 -q 1").Bitrate, 64) << "tokens 126 and 127";
    EXPECT_EQ(After("x " + many + "-b 64"), Default()) << "the value is the 128th";
}

TEST(LameCommandLine, OfTenThousandRandomLettersIsRead) {
    std::mt19937 random(5);
    const std::string letters = "-- bBmvqeFptk0123456789.+sjfd\xC3\xA4--abr--lowpass ";
    for (int round = 0; round < 200; ++round) {
        std::string line;
        for (int i = 0; i < 10'000; ++i)
            line += round % 2 ? letters[random() % letters.size()]
                              : static_cast<char>(random() % 255 + 1);
        After(line);
    }
    // Sizes that no number has.
    const LameSettings huge = After("--resample 1e300 --lowpass " + std::string(9'000, '9'));
    EXPECT_EQ(huge.Frequency, 2147483647);
}

TEST(LamePresets, ReplaceTheirFieldsOnly) {
    for (const int number : {1, 5, 11, 101, 105}) {
        LameSettings settings = Default();
        settings.AbrBitrate = 77;
        settings.Emphasis = 3;
        settings.HighPassFrequency = 100;
        contracts::ApplyLamePreset(settings, number);
        EXPECT_EQ(settings.AbrBitrate, 77) << number;
        EXPECT_EQ(settings.Emphasis, 3) << number;
        EXPECT_EQ(settings.HighPassFrequency, -1) << number;
        EXPECT_EQ(settings.NoShortBlocks, number == 5) << number;
        EXPECT_EQ(settings.PresetKind, number == 11    ? 1
                                       : number == 101 ? 2
                                       : number == 105 ? 4
                                                       : 0);
    }
    for (const int number : {0, 12, 100, 106, -1}) {
        LameSettings settings = After("--alt-preset insane");
        contracts::ApplyLamePreset(settings, number);
        EXPECT_EQ(settings, Default()) << number;
    }
    EXPECT_EQ(Default().VbrBitrate, 128);
}

}  // namespace
}  // namespace mavrin2::tests
