#include <fstream>

#include "automation/com_ptr.h"
#include "automation/guarded.h"
#include "automation/safe_array.h"
#include "automation/text.h"
#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"
#include "companions/contracts/ontiva.h"
#include "companions/contracts/pindle.h"

namespace mavrin2::bench {
namespace {

namespace fs = std::filesystem;

template <class Interface>
automation::ComPtr<Interface> Create(REFCLSID id) {
    automation::ComPtr<Interface> object;
    automation::ThrowIfFailed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, Interface::Id,
                                               reinterpret_cast<void**>(object.Put())));
    return object;
}

class Tags {
public:
    explicit Tags(const fs::path& file) : file_(automation::ToOle(file)) {}

    void Read() { automation::ThrowIfFailed(info_->ReadInfo(file_.Get())); }
    void Write() { automation::ThrowIfFailed(info_->WriteInfo(file_.Get())); }
    void SetTitle() { info_->put_Title(automation::Bstr(std::string_view("A title")).Get()); }
    void AddMarkers(int count) {
        for (int i = 0; i < count; ++i) {
            const automation::Bstr label("marker " + std::to_string(i));
            info_->InfoAddMarker(i * 100, i % 2 * 50, label.Get(), nullptr, label.Get(), 0, 0, 0,
                                 0);
        }
    }

private:
    automation::Bstr file_;
    automation::ComPtr<contracts::IOntiva> info_ =
        Create<contracts::IOntiva>(contracts::CLSID_KovOntiva);
};

double Milliseconds(const std::function<void()>& run) {
    return SecondsOf(run) * 1000;
}

void CopyOver(const fs::path& from, const fs::path& to) {
    fs::copy_file(from, to, fs::copy_options::overwrite_existing);
}

// A WAV of this many bytes of silence, which takes no room on the disk.
void MakeSilence(const fs::path& file, std::uint32_t size) {
    const std::uint32_t words[] = {0x46464952, size + 36, 0x45564157, 0x20746D66, 16,  0x00020001,
                                   44100,      176400,    0x00100004, 0x61746164, size};
    std::ofstream(file, std::ios::binary).write(reinterpret_cast<const char*>(words), sizeof words);
    fs::resize_file(file, sizeof words + size);
}

void PrintReading(const std::string& name, const fs::path& file) {
    Tags tags(file);
    std::vector<double> times;
    for (int i = 0; i < 20; ++i)
        times.push_back(Milliseconds([&] { tags.Read(); }));
    PrintValue("ReadInfo of " + name, Median(times), "ms", 10);
}

void PrintMarkers(const std::string& name, const fs::path& sound, const fs::path& copy,
                  double limit) {
    constexpr int kMarkers = 10000;
    std::vector<double> written;
    std::vector<double> read;
    for (int i = 0; i < 10; ++i) {
        if (sound != copy) CopyOver(sound, copy);
        Tags tags(copy);
        tags.AddMarkers(kMarkers);
        written.push_back(Milliseconds([&] { tags.Write(); }));
        read.push_back(Milliseconds([&] { tags.Read(); }));
    }
    PrintValue("10,000 markers written to " + name, Median(written), "ms", limit);
    PrintValue("10,000 markers read from " + name, Median(read), "ms", limit);
}

void PrintWriting(const fs::path& sound, const fs::path& copy) {
    Tags tags(copy);
    const Action ours{"WriteInfo", [&] { tags.Write(); },
                      [&] {
                          CopyOver(sound, copy);
                          tags.Read();
                          tags.SetTitle();
                      },
                      [&] { fs::remove(copy); }};
    PrintRatio("WriteInfo in " + sound.filename().string(), ours,
               {ProgramWriting(copy, {"cp", sound.string(), copy.string()})}, 1.2, 15);
}

// The image of a disc with one track that has the sound of a WAV file.
fs::path MakeDisc(const fs::path& data) {
    constexpr std::streamoff kHeader = 44;
    constexpr std::streamsize kBytes = 2352 * 75 * 60;
    std::string bytes(kBytes, '\0');
    std::ifstream wave(data / "m10.wav", std::ios::binary);
    wave.seekg(kHeader).read(bytes.data(), kBytes);
    std::ofstream(data / "disc.bin", std::ios::binary).write(bytes.data(), kBytes);
    std::ofstream(data / "disc.cue")
        << "FILE \"disc.bin\" BINARY\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n";
    return data / "disc.cue";
}

void ReadDisc() {
    const auto grabber = Create<contracts::IPindleCD2>(contracts::CLSID_KovPindle);
    grabber->GrabberInit();
    SHORT drives = 0;
    grabber->get_DriveCount(&drives);
    grabber->put_DriveNum(drives);
    automation::ThrowIfFailed(grabber->OpenDrive());
    grabber->put_ReadMode(0);
    grabber->put_TrackIndex(0);
    automation::ThrowIfFailed(grabber->StartReading(0));
    for (LONG read = 1; read > 0;) {
        automation::SafeArray<std::int16_t> block;
        LONG status = 0;
        automation::ThrowIfFailed(grabber->ReadBlock(26, block.Put(), &read, &status));
    }
}

}  // namespace

void PrintTagFigures(const Folder& data, const Folder& scripts) {
    const fs::path silence = data / "silence.wav";
    const fs::path copy = data / "tagged";
    MakeSilence(silence, 2000000000);
    PrintReading("2 GB of WAV", silence);
    PrintReading("60 minutes of MP3", data / "m60.mp3");
    PrintReading("60 minutes of FLAC", data / "m60.flac");
    PrintMarkers("2 GB of WAV", silence, silence, 20);
    PrintMarkers("MP3", data / "small.mp3", copy, 300);
    PrintRatio("10,000 chapters in MP3",
               {"WriteInfo",
                [&] {
                    Tags tags(copy);
                    tags.AddMarkers(10000);
                    tags.Write();
                },
                [&] { CopyOver(data / "small.mp3", copy); }},
               {{"mutagen",
                 [&] {
                     RunProgram({"/usr/bin/python3", (scripts / "mutagen_chapters.py").string(),
                                 copy.string()});
                 },
                 [&] { CopyOver(data / "small.mp3", copy); }}},
               0.33, 5);
    PrintWriting(data / "m60.mp3", copy);
    PrintWriting(data / "m60.flac", copy);

    const fs::path disc = MakeDisc(data);
    setenv("MAVRIN2_CD_IMAGES", disc.c_str(), 1);
    const std::vector<Action> paranoia = {ProgramWriting(
        data / "track.wav",
        {"cd-paranoia", "-q", "-d", disc.string(), "1", (data / "track.wav").string()})};
    PrintRatio("A minute of a disc image", {"ReadBlock", ReadDisc}, paranoia, 1.5, 3);
    Editor editor;
    PrintRatio("Opening it as a track", {"Open", [&] { editor.Open(disc / "Track01.cda"); }},
               paranoia, 1.5, 3);
    for (const fs::path& made : {silence, copy, disc, data / "disc.bin"})
        fs::remove(made);
}

}  // namespace mavrin2::bench
