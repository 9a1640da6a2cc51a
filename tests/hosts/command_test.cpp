// The program's commands as a shell user sees them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "tests/hosts/program.h"

namespace mavrin2::tests {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Arguments = std::vector<std::string>;

class Commands : public testing::Test {
protected:
    Commands() {
        host_.WriteWave("tone.wav", 8000, 1, 12000);
        host_.WriteWave("short.wav", 44100, 2, 4);
        host_.Write("text.wav", "no sound\n");
        host_.Write("old.mp3", "older");
        std::filesystem::create_directory(host_.Path("folder.wav"));
    }

    HostEnvironment host_;
};

TEST_F(Commands, ExplainTheirUseAndRefuseUnclearCommandLines) {
    struct {
        Arguments Line;
        int Code;
        const char* Out;
        const char* Err;
    } const cases[] = {
        {{"--help"}, 0, "Usage: mavrin2 COMMAND", ""},
        {{"--version"}, 0, "mavrin2 2.", ""},
        {{"info", "--version"}, 0, "mavrin2 2.", ""},
        {{"completion", "bash"}, 0, "_mavrin2() {\n", ""},
        {{"completion", "tcsh"}, 2, "", "completion needs a shell: bash, zsh or fish\n"},
        {{"help", "man"}, 0, ".TH MAVRIN2 1", ""},
        {{"help", "info"}, 0, "Usage: mavrin2 info", ""},
        {{"help", "me\t"}, 2, "", "unknown command 'me\\t'"},
        {{"convert", "tone.wav", "x.wav", "--delete", "1"},
         2,
         "",
         "'1' for --delete; try 1:30-2:15"},
        {{"convert", "tone.wav", "x.wav", "--gain=41"}, 2, "", "'41' for --gain; try -6 (decibels"},
        {{"convert", "tone.wav", "x.wav", "--quality=3"}, 2, "", "is for mp3, ogg, oga, not for"},
        {{"convert", "tone.wav", "tone.wav", "-o", "."}, 2, "", "two files would be written to"},
        {{"convert", "tone.wav", "x.vox", "--channels=2"},
         1,
         "",
         "x.vox: VOX ADPCM does not have 8000 Hz stereo; the nearest is 8000 Hz mono\n"},
        {{"run", "--help"}, 0, "Usage: mavrin2 run", ""},
        {{"info", "--help", "--", "x"}, 0, "Usage: mavrin2 info", ""},
        {{"convert", "-h"}, 0, "Usage: mavrin2 convert", ""},
        {{}, 2, "", "Usage: mavrin2 COMMAND"},
        {{"sing"}, 2, "", "unknown command 'sing'\nTry 'mavrin2 --help'.\n"},
        {{"play"}, 2, "", "play needs one file\n"},
        {{"play", "tone.wav", "--speed=0"}, 2, "", "'0' for --speed; try 150 (10 to 1000)\n"},
        {{"record", "x.mp9"}, 2, "", "unknown format 'mp9'"},
        {{"devices", "x"}, 2, "", "devices takes no arguments\n"},
        {{"--play"}, 2, "", "unknown option '--play'\n"},
        {{"run"}, 2, "", "run needs a script\nTry 'mavrin2 run --help'.\n"},
        {{"info"}, 2, "", "info needs at least one file\n"},
        {{"info", "-x", "tone.wav"}, 2, "", "unknown option '-x'\n"},
        {{"convert", "tone.wav"}, 2, "", "convert needs two files"},
        {{"convert", "tone.wav", "x.wav", "--start"}, 2, "", "--start needs a value\n"},
        {{"convert", "tone.wav", "x.wav", "--start=-1"},
         2,
         "",
         "invalid time '-1' for --start; try 1.5, 1:30.25 or 66150f\n"},
        {{"convert", "tone.wav", "x.wav", "--rate", "22.05"},
         2,
         "",
         "invalid value '22.05' for --rate; try 44100 (1000 to 192000)\n"},
        {{"convert", "tone.wav", "x.wav", "--channels=3"}, 2, "", "'3' for --channels; try 1 or 2"},
        {{"join", "out.wav"}, 2, "", "join needs OUT and at least one file\n"},
        {{"mix", "out.wav"}, 2, "", "mix needs OUT and at least one file\n"},
        {{"mix", "out.wav", "a.wav@-5%"}, 2, "", "invalid level '@-5%'; try @30% (0 to 1000)\n"},
        {{"process", "tone.wav", "out.wav"}, 2, "", "process needs two files, IN and OUT, and"},
        {{"process", "tone.wav", "out.wav", "Louder"}, 2, "", "unknown operation 'Louder'; `mav"},
        {{"process", "tone.wav", "out.wav", "Fade=1"}, 2, "", "try Fade=AmpLeft,AmpRight\n"},
        {{"process", "tone.wav", "out.wav", "Fade=1,x"}, 2, "", "invalid AmpRight 'x' for Fade"},
        {{"process", "tone.wav", "out.wav", "FFTFilter=1:"}, 2, "", "try numbers with colons"},
        {{"process", "tone.wav", "out.wav", "MixStereoChannels=1,2,3,4"},
         1,
         "",
         "MixStereoChannels=1,2,3,4: does not apply to this sound\n"},
        {{"operations"}, 0, "Resample=Rate\n    Changes length and pitch", ""},
        {{"mix", "out.wav", "a.wav@1e3%"}, 2, "", "invalid level '@1e3%'"},
        {{"convert", "tone.wav", "x.mp9"},
         2,
         "",
         "x.mp9: unknown format 'mp9'; try wav, aiff, flac, ogg, opus, mp3, vox\n"},
        {{"convert", "tone.wav", "x", "--format", "MP9"},
         2,
         "",
         "unknown format 'MP9'; `mavrin2 conv"},
        {{"convert", "tone.wav", "x", "--format", "PCM=1,2,3,4"}, 2, "", "try PCM=Frequency,nChan"},
        {{"convert", "tone.wav", "x", "--format", "DSP"}, 1, "", "x: ACM Driver error."},
        {{"convert", "tone.wav", "x.mp3", "--format", "GSM"},
         1,
         "",
         "x.mp3: files of this kind are not written as GSM 6.10; try another extension\n"},
        {{"convert", "tone.wav", "x.wav", "--lame", "-b 64"}, 1, "", "are not written as MP3; try"},
        {{"convert", "tone.wav", "x", "--format", "GSM", "--lame", ""},
         2,
         "",
         "exclude each other"},
        {{"convert", "tone.wav", "x"}, 2, "", "x: no extension that chooses a format; try wav"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Line));
        Program program(one.Line, host_.In());
        EXPECT_EQ(program.Finish(), one.Code);
        EXPECT_THAT(program.Out, StartsWith(one.Out));
        EXPECT_THAT(program.Err, HasSubstr(one.Err));
        EXPECT_EQ(program.Out.empty(), *one.Out == 0);
        EXPECT_EQ(program.Err.empty(), *one.Err == 0);
    }
}

TEST_F(Commands, ConvertWritesTheFormatThatIsAskedFor) {
    for (const auto& [option, value, name, format] :
         {std::tuple{"--format", "ULAW=11025", "a", "u-law 11025 Hz; 8 bit; mono"},
          {"--format", "OggVorbis=44100,STEREO,96", "a.ogg",
           "Ogg Vorbis 44100 Hz; 96 kbit/s; stereo"},
          {"--format", "LikeSample=a.ogg", "b.ogg", "Ogg Vorbis 44100 Hz; 96 kbit/s; stereo"},
          {"--lame", "-b 32 -m m --resample 16", "a.mp3", "MP3 16000 Hz; 32 kbit/s; mono"}}) {
        Program convert({"convert", "tone.wav", name, option, value}, host_.In());
        EXPECT_EQ(convert.Finish(), 0) << convert.Err;
        Program info({"info", name}, host_.In());
        EXPECT_EQ(info.Finish(), 0);
        EXPECT_THAT(info.Out, HasSubstr(std::string("Format    ") + format + "\n"));
    }
    for (const char* quality : {"0", "9"}) {
        Program convert(
            {"convert", "tone.wav", std::string(quality) + ".mp3", "--quality", quality},
            host_.In());
        EXPECT_EQ(convert.Finish(), 0) << convert.Err;
    }
    EXPECT_GT(host_.Read("0.mp3")->size(), host_.Read("9.mp3")->size()) << "a variable bit rate";
    Program help({"convert", "--help"}, host_.In());
    EXPECT_EQ(help.Finish(), 0);
    EXPECT_THAT(help.Out, HasSubstr("  G726=Frequency,BitsPerSample\n"));
}

TEST_F(Commands, InfoDescribesEveryFileThatCanBeRead) {
    Program program({"info", "tone.wav", "missing.wav", "--", "short.wav"}, host_.In());
    EXPECT_EQ(program.Finish(), 1);
    EXPECT_EQ(program.Out,
              "File      tone.wav\n"
              "Format    PCM 8000 Hz; 16 bit; mono\n"
              "Length    0:00:01.500 (12000 frames)\n"
              "Rate      8000 Hz\n"
              "Channels  1\n"
              "Bit rate  128 kbit/s\n"
              "\n"
              "File      short.wav\n"
              "Format    PCM 44100 Hz; 16 bit; stereo\n"
              "Length    0:00:00.000 (4 frames)\n"
              "Rate      44100 Hz\n"
              "Channels  2\n"
              "Bit rate  5292 kbit/s\n");
    EXPECT_EQ(program.Err, "mavrin2: missing.wav: No such file or directory\n");

    auto full = host_.In();
    full.Output = "/dev/full";
    Program unwritten({"info", "tone.wav"}, full);
    EXPECT_EQ(unwritten.Finish(), 1);
    EXPECT_EQ(unwritten.Err, "mavrin2: standard output: No space left on device\n");
}

TEST_F(Commands, SayWhatGetsLostAndRefuseItWithStrict) {
    host_.WriteWave("six.wav", 8000, 6, 100);
    host_.WriteWave("ramp.wav", 8000, 1, 40000);
    host_.Write("cut.wav", host_.Read("tone.wav")->substr(0, 44 + 2000));
    const char* const mixed = "six.wav: 6 channels mixed down to 2\n";
    const char* const cut =
        "cut.wav: damaged: has 1000 of the 12000 frames that its header states\n";
    for (const auto& [line, loss] :
         {std::pair<Arguments, const char*>{{"convert", "six.wav", "out.wav"}, mixed},
          {{"process", "cut.wav", "out.wav", "Reverse"}, cut},
          {{"join", "out.wav", "tone.wav", "cut.wav"}, cut},
          {{"mix", "out.wav", "six.wav", "six.wav"}, mixed},
          {{"convert", "tone.wav", "out.wav", "--gain=20", "--end=4000f"},
           "tone.wav: 723 samples limited to full scale by --gain\n"},
          {{"process", "tone.wav", "out.wav", "Amplify=300"},
           "tone.wav: 1077 samples limited to full scale by Amplify=300\n"},
          {{"mix", "out.wav", "tone.wav", "tone.wav@200%"},
           "tone.wav: 1077 samples limited to full scale in the mix\n"},
          {{"convert", "ramp.wav", "out.wav", "--rate=16000"},
           "ramp.wav: 196 samples limited to full scale by the change of rate\n"},
          {{"join", "out.wav", "tone.wav", "ramp.wav", "--rate=16000"},
           "samples limited to full scale by the change of rate\n"},
          {{"convert", "short.wav", "out.opus"}, "to which it was converted\n"}}) {
        SCOPED_TRACE(testing::PrintToString(line));
        Arguments strict = line;
        strict.emplace_back("--strict");
        for (const std::string name : {"out.wav", "out.opus"})
            std::filesystem::remove(host_.Path(name));
        Program refused(strict, host_.In());
        EXPECT_EQ(refused.Finish(), 1);
        EXPECT_THAT(refused.Err, HasSubstr(loss));
        EXPECT_THAT(refused.Err, HasSubstr(": not written, because of --strict\n"));
        EXPECT_FALSE(host_.Read("out.wav") || host_.Read("out.opus"));
        Program said(line, host_.In());
        EXPECT_EQ(said.Finish(), 0);
        EXPECT_THAT(said.Err, testing::EndsWith(loss));
        EXPECT_TRUE(host_.Read("out.wav") || host_.Read("out.opus"));
    }
    Program info({"info", "--json", "--exact", "six.wav", "cut.wav"}, host_.In());
    EXPECT_EQ(info.Finish(), 0);
    EXPECT_THAT(info.Out, HasSubstr("\"losses\": [\"6 channels mixed down to 2\"]},\n{\"file\""));
    EXPECT_THAT(info.Out, HasSubstr("\"losses\": [\"damaged: has 1000 of"));
}

TEST_F(Commands, ReadStandardInputAndWriteStandardOutput) {
    auto piped = host_.In();
    piped.Input = host_.Path("tone.wav");
    const auto before = host_.Files();
    for (const auto& line : {Arguments{"convert", "-", "-", "--format", "wav"},
                             {"convert", "-", "-", "--format=PCM=8000,1,16"},
                             {"join", "-", "-", "--format=.WAV"},
                             {"mix", "-", "-@100%", "--format=wav"}}) {
        SCOPED_TRACE(testing::PrintToString(line));
        Program program(line, piped);
        EXPECT_EQ(program.Finish(), 0);
        EXPECT_EQ(program.Err, "");
        EXPECT_EQ(program.Out, host_.Read("tone.wav"));
    }
    Program info({"info", "-"}, piped);
    EXPECT_EQ(info.Finish(), 0);
    EXPECT_THAT(info.Out, HasSubstr("(12000 frames)"));
    host_.Write("script", "#!/usr/bin/mavrin2\nio.write(arg[0], arg[1], debug.traceback())");
    piped.Input = host_.Path("script");
    Program script({"run", "-", "x"}, piped);
    EXPECT_EQ(script.Finish(), 0);
    EXPECT_THAT(script.Out, testing::AllOf(StartsWith("-x"), HasSubstr("stdin:2:")));

    struct {
        Arguments Line;
        int Code;
        const char* Err;
    } const refused[] = {
        {{"convert", "tone.wav", "-"}, 2, "standard output needs --format; try wav"},
        {{"join", "-", "tone.wav", "--format=mp9"}, 2, "standard output: unknown format 'mp9'"},
        {{"join", "x.wav", "tone.wav", "--format=wav"}, 2, "the extension of x.wav chooses"},
        {{"join", "x.wav", "-", "-"}, 2, "standard input, -, can be given only once"},
        {{"convert", "-", "-o", "."}, 2, "standard input, -, has no name for -o FOLDER"},
        {{"info", "-"}, 1, "mavrin2: standard input: not a sound file; it looks like text\n"},
    };
    for (const auto& one : refused) {
        Program program(one.Line, piped);
        EXPECT_EQ(program.Finish(), one.Code);
        EXPECT_THAT(program.Err, HasSubstr(one.Err));
    }
    host_.WriteWave("long.wav", 44100, 2, 44100 * 10);
    std::filesystem::remove(host_.Path("script"));
    auto shell = host_.In();
    shell.Path = "/bin/sh";
    const auto run = [&](const std::string& text) {
        Program program(
            {"-c", "program() { \"" MAVRIN2_PROGRAM "\" \"$@\"; echo \" $?\" >&2; }\n" + text},
            shell);
        program.Finish();
        return program.Err;
    };
    EXPECT_EQ(run("program convert long.wav - --format wav | true"),
              "mavrin2: standard output: Broken pipe\n 1\n");
    EXPECT_EQ(run("program convert tone.wav - --format wav > /dev/full"),
              "mavrin2: standard output: No space left on device\n 1\n");
    EXPECT_EQ(run("program info - <&-"), "mavrin2: standard input: Bad file descriptor\n 1\n");
    EXPECT_EQ(run("program convert tone.wav new.wav <&- >&-; cmp tone.wav new.wav"), " 0\n")
        << "what is printed does not go into the file";
    std::filesystem::remove(host_.Path("new.wav"));
    std::filesystem::remove(host_.Path("long.wav"));
    std::vector<std::string> after = host_.Files();
    EXPECT_EQ(after, before);
}

TEST_F(Commands, ConvertSeveralFilesAtOnce) {
    std::filesystem::create_directory(host_.Path("out"));
    Program several({"convert", "tone.wav", "text.wav", "short.wav", "-o", "out", "--to", "flac"},
                    host_.In());
    EXPECT_EQ(several.Finish(), 1);
    EXPECT_THAT(several.Out, HasSubstr("tone.wav -> out/tone.flac\n"));
    EXPECT_THAT(several.Err, HasSubstr("text.wav: not a sound file; it looks like text\n"));
    EXPECT_THAT(several.Err, testing::EndsWith("mavrin2: 2 of 3 files were converted\n"));
    EXPECT_TRUE(host_.Read("out/short.flac") && !host_.Read("out/text.flac"));
    Program again({"convert", "tone.wav", "short.wav", "-o", "out", "--quiet"}, host_.In());
    EXPECT_EQ(again.Finish(), 0);
    EXPECT_EQ(again.Out + again.Err, "");
    Program kept({"convert", "tone.wav", "out/tone.flac", "--no-clobber"}, host_.In());
    EXPECT_EQ(kept.Finish(), 1);
    EXPECT_EQ(kept.Err, "mavrin2: out/tone.flac: exists already\n");
}

TEST_F(Commands, ConvertWritesTheWholeSoundOrAPartOfIt) {
    const std::string samples = host_.Read("tone.wav")->substr(44);
    struct {
        Arguments Options;
        std::size_t Start;
        std::size_t End;
    } const cases[] = {
        {{}, 0, 12000},
        {{"--start", "0.5", "--end", "0:01.25"}, 4000, 10000},
        {{"--start=11999f"}, 11999, 12000},
        {{"--end", "1"}, 0, 8000},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Options));
        Arguments line{"convert", "tone.wav", "out.WAV"};
        line.insert(line.end(), one.Options.begin(), one.Options.end());
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 0);
        EXPECT_EQ(program.Out + program.Err, "") << "nothing to say";
        EXPECT_TRUE(host_.Read("out.WAV")->ends_with(
            "data" +
            std::string({static_cast<char>((one.End - one.Start) * 2),
                         static_cast<char>((one.End - one.Start) * 2 >> 8), 0, 0}) +
            samples.substr(2 * one.Start, 2 * (one.End - one.Start))));
    }
}

// The samples of a file of 16 bits, mono.
std::vector<int> Samples(const std::string& file) {
    std::vector<int> samples;
    const std::size_t data = file.find("data") + 8;
    for (std::size_t i = data; i + 1 < file.size(); i += 2)
        samples.push_back(static_cast<std::int16_t>(static_cast<std::uint8_t>(file[i]) |
                                                    static_cast<std::uint8_t>(file[i + 1]) << 8));
    return samples;
}

TEST_F(Commands, ConvertJoinAndMixWholeSounds) {
    host_.WriteWave("start.wav", 8000, 1, 100);
    host_.Write("a@b%.wav", *host_.Read("start.wav"));
    const auto written = [&](const Arguments& line) {
        SCOPED_TRACE(testing::PrintToString(line));
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 0);
        EXPECT_EQ(program.Out + program.Err, "");
        return Samples(host_.Read("out.wav").value_or(""));
    };
    const auto joined = written({"join", "out.wav", "start.wav", "tone.wav", "a@b%.wav"});
    ASSERT_EQ(joined.size(), 12200U);
    EXPECT_EQ(joined[99], 99);
    EXPECT_EQ(joined[100], 0);
    EXPECT_EQ(joined[12099], 11999);
    EXPECT_EQ(joined[12199], 99);

    // In the given order, each on what the one before made of the range.
    const auto processed =
        written({"process", "tone.wav", "out.wav", "InsertSilence=1000", "Amplify=50",
                 "Envelope=100:100", "Equalizer=0:0,100:1000", "--start", "1", "--end", "9000f"});
    ASSERT_EQ(processed.size(), 20000U);
    EXPECT_EQ(processed[7999], 7999);
    EXPECT_EQ(processed[8000], 0);
    EXPECT_EQ(processed[16100], 4050);
    EXPECT_EQ(processed[17000], 9000);

    // As long as the longest one; the rest of it has its own level, too.
    const auto mixed = written({"mix", "out.wav", "start.wav", "tone.wav@50%", "a@b%.wav@25%"});
    ASSERT_EQ(mixed.size(), 12000U);
    EXPECT_EQ(mixed[80], 80 + 40 + 20);
    EXPECT_EQ(mixed[11000], 5500);

    // Ranges are those of the file, in any order.
    const auto edited =
        written({"convert", "tone.wav", "out.wav", "--delete=1500f-3000f", "--silence=4000f-4001f",
                 "--delete=1000f-2000f", "--start=500f", "--end=5000f", "--gain=-6.0206"});
    ASSERT_EQ(edited.size(), 2500U);
    EXPECT_EQ(edited[0], 250);
    EXPECT_EQ(edited[500], 1500);
    EXPECT_EQ(edited[1500], 0);
    const auto faded =
        written({"convert", "tone.wav", "out.wav", "--fade=0,1", "--end=1", "--normalize=100"});
    EXPECT_EQ(faded.at(0), 0);
    EXPECT_NEAR(faded.at(4000), 8192, 8);
    EXPECT_LT(faded.at(7990), 50);

    const Arguments to16{"--rate", "16000", "--start", "0.5", "--end", "1"};
    Arguments line{"convert", "tone.wav", "out.wav"};
    line.insert(line.end(), to16.begin(), to16.end());
    const auto converted = written(line);
    EXPECT_NEAR(static_cast<double>(converted.size()), 8000, 2);
    // The low-pass delays by 24.5 frames, and its pass band ripples.
    EXPECT_NEAR(converted.at(4000), 6000, 30) << "a ramp stays one";
    Arguments stereo{"join", "out.wav", "tone.wav", "tone.wav", "--channels", "2"};
    EXPECT_EQ(written(stereo).size(), 48000U);
}

// Two names that differ in one byte, which is no UTF-8, are two files on every way.
TEST_F(Commands, KeepNamesThatAreNotUtf8) {
    host_.Write("script.lua", R"(
        local editor = mavrin2.create()
        editor.TempDirectory = arg[1] .. "/"
        print(editor.TempDirectory)
        editor:Open(arg[2])
        editor:Save(arg[3], false)
        editor:Copy()
    )");
    std::uint32_t frames = 100;
    for (const std::string byte : {"\xE8", "\xE9"}) {
        const std::string in = "caf" + byte + ".wav";
        const std::string converted = "converted" + byte + ".wav";
        const std::string saved = "saved" + byte + ".wav";
        host_.WriteWave(in, 8000, 1, ++frames);
        Program info({"info", in}, host_.In());
        EXPECT_EQ(info.Finish(), 0) << info.Err;
        EXPECT_THAT(info.Out, HasSubstr(in));
        Program convert({"convert", in, converted}, host_.In());
        EXPECT_EQ(convert.Finish(), 0) << convert.Err;
        const auto folder = host_.Path("folder" + byte);
        std::filesystem::create_directory(folder);
        Program script({"run", "script.lua", folder, in, saved}, host_.In());
        EXPECT_EQ(script.Finish(), 0) << script.Err;
        EXPECT_EQ(script.Out, folder.string() + "/\n");
    }
    for (const std::string name : {"converted", "saved"}) {
        EXPECT_EQ(host_.Read(name + "\xE8.wav")->size(), 44u + 2 * 101) << name;
        EXPECT_EQ(host_.Read(name + "\xE9.wav")->size(), 44u + 2 * 102) << name;
    }
}

TEST_F(Commands, DestroyNothingWhenTheyFail) {
    std::filesystem::create_hard_link(host_.Path("tone.wav"), host_.Path("twin.wav"));
    std::filesystem::create_symlink("tone.wav", host_.Path("link.wav"));
    const auto before = host_.Files();
    const auto tone = host_.Read("tone.wav");
    struct {
        Arguments Line;
        const char* Err;
        std::int64_t LongestFile = -1;
    } const cases[] = {
        {{"convert", "missing.wav", "old.mp3"}, "missing.wav: No such file or directory"},
        {{"convert", "folder.wav", "old.mp3"}, "folder.wav: Is a directory"},
        {{"convert", "/dev/null", "old.mp3"}, "/dev/null: not a regular file"},
        {{"convert", "text.wav", "old.mp3"}, "text.wav: not a sound file; it looks like text"},
        {{"convert", "tone.wav", "nowhere/x.wav"},
         "nowhere/x.wav: the folder nowhere does not exist"},
        {{"convert", "tone.wav", "old.mp3/x.wav"}, "old.mp3/x.wav: Not a directory"},
        {{"convert", "tone.wav", "folder.wav"}, "folder.wav: Is a directory"},
        {{"convert", "tone.wav", "./tone.wav"}, "./tone.wav: input and output are the same file"},
        {{"convert", "tone.wav", "twin.wav"}, "twin.wav: input and output are the same file"},
        {{"convert", "tone.wav", "link.wav"}, "link.wav: input and output are the same file"},
        {{"convert", "tone.wav", "old.mp3", "--start", "1", "--end", "1.0"},
         "tone.wav: there is no sound from --start to --end"},
        {{"join", "old.mp3", "tone.wav", "missing.wav"}, "missing.wav: No such file or directory"},
        {{"join", "old.mp3", "tone.wav", "text.wav"},
         "text.wav: not a sound file in a known format"},
        {{"join", "twin.wav", "short.wav", "tone.wav"}, "twin.wav: input and output are the same"},
        {{"mix", "old.mp3", "tone.wav", "folder.wav@50%"}, "folder.wav: Is a directory"},
        {{"mix", "link.wav", "short.wav", "tone.wav@5%"},
         "link.wav: input and output are the same"},
        {{"convert", "tone.wav", "old.mp3", "--end", "12001f"},
         "tone.wav: --end is past the end at 0:00:01.500 (12000f)"},
        {{"convert", "tone.wav", "old.mp3", "--start", "2"},
         "tone.wav: --start is past the end at 0:00:01.500 (12000f)"},
        // No room for the work file; room for that, but not for a frame of MP3.
        {{"convert", "short.wav", "old.mp3"},
         "short.wav: cannot write its working copy in the temporary folder ",
         40},
        {{"convert", "short.wav", "old.mp3"}, "old.mp3: cannot be written", 300},
        {{"convert", "short.wav", "new.mp3"}, "new.mp3: cannot be written", 300},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.Line));
        auto settings = host_.In();
        settings.LongestFile = one.LongestFile;
        Program program(one.Line, settings);
        EXPECT_EQ(program.Finish(), 1);
        EXPECT_THAT(program.Err, StartsWith("mavrin2: " + std::string(one.Err)));
        EXPECT_EQ(host_.Files(), before);
        EXPECT_EQ(host_.Read("old.mp3"), "older");
        EXPECT_EQ(host_.Read("tone.wav"), tone);
    }
}

TEST_F(Commands, ConvertReplacesAFileAsIfItHadBeenWrittenInPlace) {
    std::filesystem::permissions(host_.Path("old.mp3"), std::filesystem::perms(0640));
    std::filesystem::create_symlink("old.mp3", host_.Path("link.mp3"));
    EXPECT_EQ(Program({"convert", "tone.wav", "link.mp3"}, host_.In()).Finish(), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(host_.Path("link.mp3")));
    EXPECT_NE(host_.Read("old.mp3"), "older");
    EXPECT_EQ(std::filesystem::status(host_.Path("old.mp3")).permissions(),
              std::filesystem::perms(0640));
}

TEST_F(Commands, ConvertCleansUpWhenItIsInterrupted) {
    host_.WriteWave("long.wav", 44100, 2, 44100 * 400);
    for (const int signal : {SIGINT, SIGTERM, SIGQUIT}) {
        const auto before = host_.Files();
        auto settings = host_.In();
        settings.Terminal = true;
        Program program({"convert", "long.wav", "new.mp3"}, settings);
        ASSERT_TRUE(program.AwaitError("Writing ["));
        program.Signal(signal);
        EXPECT_EQ(program.Finish(), 128 + signal) << "the shell has to know why it ended";
        EXPECT_THAT(program.Err, testing::EndsWith(" \r")) << "the bar is erased";
        EXPECT_EQ(host_.Files(), before);
    }
}

// Without a sound server: in real time, silence both ways.
TEST_F(Commands, PlayAndRecord) {
    const auto run = [&](const Arguments& line) {
        Program program(line, host_.In());
        EXPECT_EQ(program.Finish(), 0) << program.Err;
        return program.Out;
    };
    EXPECT_EQ(run({"devices"}),
              "Playback\n  1  No sound device\nRecording\n  1  No sound device\n");
    run({"play", "tone.wav", "--start=0.5", "--end=0.7", "--speed=200", "--device", "1"});
    run({"record", "take.wav", "--length=0.3", "--rate=8000", "--channels=1"});
    EXPECT_THAT(run({"info", "take.wav"}), HasSubstr("(2400 frames)"));
    Program refused({"record", "take.wav", "--device=None"}, host_.In());
    EXPECT_EQ(refused.Finish(), 1);
    EXPECT_THAT(refused.Err, HasSubstr("None: no such device; `mavrin2 devices` lists them\n"));

    // Ctrl-C is how a recording ends.
    auto terminal = host_.In();
    terminal.Terminal = true;
    Program endless({"record", "take.wav"}, terminal);
    EXPECT_TRUE(endless.AwaitError("Recording 0:00:0"));
    endless.Signal(SIGINT);
    EXPECT_EQ(endless.Finish(), 0);
    EXPECT_THAT(run({"info", "take.wav"}), HasSubstr("44100 Hz"));
    Program loop({"play", "tone.wav", "--loop"}, terminal);
    EXPECT_TRUE(loop.AwaitError("Playing 0:00:0"));
    loop.Signal(SIGINT);
    EXPECT_EQ(loop.Finish(), 0);
}

TEST_F(Commands, FindTheComponentsBesideTheProgram) {
    for (const char* folder : {"bin", "lib"})
        std::filesystem::create_directory(host_.Path(folder));
    std::filesystem::copy_file(MAVRIN2_PROGRAM, host_.Path("bin/mavrin2"));
    std::filesystem::copy_file(MAVRIN2_TEST_REGISTRY, host_.Path("lib/mavrin2-components"));
    std::filesystem::create_symlink("bin/mavrin2", host_.Path("linked"));
    auto settings = host_.In();
    settings.Path = host_.Path("linked");
    settings.Environment["LD_LIBRARY_PATH"] =
        std::filesystem::path(MAVRIN2_RUNTIME).parent_path().string();
    settings.Environment["MAVRIN2_REGISTRY"] = std::nullopt;
    EXPECT_EQ(Program({"info", "tone.wav"}, settings).Finish(), 0);

    settings.Environment["MAVRIN2_REGISTRY"] = host_.Path("none").string();
    Program other({"info", "tone.wav"}, settings);
    EXPECT_EQ(other.Finish(), 1) << "the variable takes precedence";
    EXPECT_THAT(other.Err, HasSubstr("mavrin2: Cannot create KovMavrin2.Mavrin2: "));
}

}  // namespace
}  // namespace mavrin2::tests
