// Every call of the file system, made to fail in turn, and a disk that is full at every place.

#include "tests/control/control_test.h"

namespace mavrin2::tests {
namespace {

using Call = platform::MemoryFileSystem::Operation;
using Output = FakeDusoro::Output;

constexpr auto kFileAccess = static_cast<HRESULT>(0x80040309);
constexpr std::int64_t kSpaceStep = 97;  // bytes

struct Fault {
    const char* Name;
    std::optional<Call> Failing;
    bool NoMemory = false;  // otherwise, without a failing call, the disk is full
};

constexpr Fault kFaults[] = {
    {"Create", Call::Create},       {"Write", Call::Write},   {"Open", Call::Open},
    {"Read", Call::Read},           {"Length", Call::Length}, {"FullDisk", std::nullopt},
    {"Memory", std::nullopt, true},
};

struct Operation {
    const char* Name;
    HRESULT (*Run)(ControlWorld& world);
    // What else is expected after a failure.
    void (*Check)(ControlWorld& world, HRESULT status);
    std::int64_t NewFile;  // bytes that the operation writes
    LONG ClipRate = 0;     // of the clip file; 0 for none
    // What a Stop in each event leaves: the document as it was (-), a part of what was to be pasted
    // or mixed (p), or all of it (+).
    const char* Stopped = nullptr;
};

class Sweep : public testing::TestWithParam<std::tuple<int, int>> {};

std::string Everything(ControlWorld& world) {
    std::string all = world.Positions() + (world.UndoEnabled() ? " undo" : "") +
                      (world.RedoEnabled() ? " redo" : "");
    for (const std::int16_t sample : world.DocumentSamples())
        all += " " + std::to_string(sample);
    for (const auto& path : world.System.Files->Files())
        if (path != ControlWorld::ClipFile) all += " " + path.string();
    return all;
}

// A document with an older and a newer version, and the state of it all.
std::string Prepare(ControlWorld& world, const Operation& operation) {
    world.Start();
    world.OpenSound(Ramp(1000));
    for (int edit = 0; edit < 2; ++edit) {
        world.Select(0, 100);
        world.Control->DeleteSelect();
    }
    world.Control->Undo();
    world.Select(500, 600);
    if (operation.ClipRate > 0)
        world.SetClip(static_cast<std::uint32_t>(operation.ClipRate), 1, Ramp(250));
    world.Private->Source.Samples = Ramp(2100);
    world.Dusoro->State = Output::None;
    world.Dusoro->OpenCode = -12;
    world.Dusoro->Calls.clear();
    return Everything(world);
}

void CheckEdit(ControlWorld& world, HRESULT status) {
    EXPECT_EQ(status, S_OK);
    // Without a clip nothing begins.
    EXPECT_EQ(world.Events->Take().ends_with("end"), world.LastError() != 0);
}

void CheckSave(ControlWorld& world, HRESULT status) {
    EXPECT_EQ(status, kFileAccess);
    EXPECT_NE(world.Dusoro->State, Output::Unfinished);
    EXPECT_NE(world.Dusoro->State, Output::Complete);
    EXPECT_EQ(world.FormatString(), "Fake sound");
}

void CheckOpen(ControlWorld& world, HRESULT status) {
    EXPECT_EQ(status, kFileAccess);
    EXPECT_EQ(world.History().Current(), nullptr);
    EXPECT_EQ(world.TempFiles().size(), 3u) << "those of the versions before";
    EXPECT_TRUE(world.Dusoro->Calls.ends_with("CloseFile()"));
}

void CheckOpenTrack(ControlWorld& world, HRESULT status) {
    EXPECT_EQ(status, kFileAccess);
    EXPECT_EQ(world.History().Current(), nullptr);
    EXPECT_FALSE(world.Pindle->Open);
}

void CheckNew(ControlWorld& world, HRESULT status) {
    EXPECT_EQ(status, kFileAccess);
    EXPECT_EQ(world.History().Current(), nullptr);
    EXPECT_EQ(world.TempFiles().size(), 3u);
    EXPECT_EQ(world.Events->Take(), "");
    EXPECT_EQ(Got(*world.FileInfo, &interfaces::IMavrin2FileInfo::get_Channels),
              interfaces::ChannelsConstants::STEREO);
}

void CheckCopy(ControlWorld& world, HRESULT status) {
    CheckEdit(world, status);
    EXPECT_FALSE(world.System.Files->Exists(ControlWorld::ClipFile)) << "neither all nor a part";
}

const Operation kOperations[] = {
    {"New",
     [](ControlWorld& world) {
         return world.Control->New(interfaces::FrequencyConstants::FQ_8_KHZ,
                                   interfaces::ChannelsConstants::STEREO);
     },
     CheckNew, 58},
    {"Open",
     [](ControlWorld& world) {
         world.Dusoro->OpenCode = 0;
         world.Dusoro->Source.FramesPerRead = 300;
         return world.Open();
     },
     CheckOpen, 58 + 2000},
    {"OpenTrack", [](ControlWorld& world) { return world.OpenTrack(Ramp(1000)); }, CheckOpenTrack,
     58 + 2000},
    {"Save", [](ControlWorld& world) { return world.Save(); }, CheckSave, 0},
    {"DeleteSelect", [](ControlWorld& world) { return world.Control->DeleteSelect(); }, CheckEdit,
     58 + 1600, 0, "--------++"},
    {"Copy", [](ControlWorld& world) { return world.Control->Copy(); }, CheckCopy, 58 + 200, 0,
     "--"},
    {"Cut", [](ControlWorld& world) { return world.Control->Cut(); }, CheckEdit, 58 + 200, 0,
     "++--------++"},
    {"Paste", [](ControlWorld& world) { return world.Control->Paste(); }, CheckEdit, 58 + 2100,
     1000, "-----pp+---++"},
    {"PasteConverted", [](ControlWorld& world) { return world.Control->Paste(); }, CheckEdit,
     58 + 2600, 500, "-----pppp+---++"},
    {"PasteFromFile", [](ControlWorld& world) { return world.PasteFromFile(); }, CheckEdit,
     58 + 5800, 0, "-----pp+---++"},
    {"Mix", [](ControlWorld& world) { return world.Control->Mix(50, 50); }, CheckEdit, 58 + 1800,
     500, "-----+++"},
    {"MixFromFile", [](ControlWorld& world) { return world.MixFromFile(50, 50); }, CheckEdit,
     58 + 1800, 0, "-----+++"},
    {"PutAudioArray", [](ControlWorld& world) { return world.PutAudioArray(Ramp(50)); }, CheckEdit,
     58 + 1700, 0, "--------++"},
    {"ConvertSampleType",
     [](ControlWorld& world) {
         return world.Control->ConvertSampleType(interfaces::FrequencyConstants{500},
                                                 interfaces::ChannelsConstants::STEREO);
     },
     CheckEdit, 58 + 1800, 0, "---------+"},
    {"Transform",
     [](ControlWorld& world) {
         automation::ComPtr<interfaces::IMavrin2Transform> transform;
         world.Control->get_Transform(transform.Put());
         return transform->Invert();
     },
     CheckEdit, 58 + 1800},
};

int CallsOf(const Operation& operation, const Fault& fault) {
    ControlWorld world;
    Prepare(world, operation);
    if (fault.NoMemory) {
        const int taken = world.System.Memory->Calls();
        EXPECT_EQ(operation.Run(world), S_OK);
        return world.System.Memory->Calls() - taken;
    }
    if (!fault.Failing) return static_cast<int>((operation.NewFile + kSpaceStep - 1) / kSpaceStep);
    const int before = world.System.Files->Calls(*fault.Failing);
    EXPECT_EQ(operation.Run(world), S_OK);
    return world.System.Files->Calls(*fault.Failing) - before;
}

TEST_P(Sweep, LeavesEverythingAsItWas) {
    const Operation& operation = kOperations[std::get<0>(GetParam())];
    const Fault& fault = kFaults[std::get<1>(GetParam())];
    const int calls = CallsOf(operation, fault);
    for (int n = 1; n <= calls; ++n) {
        SCOPED_TRACE(n);
        ControlWorld world;
        const std::string before = Prepare(world, operation);
        if (fault.NoMemory)
            world.System.Memory->RefuseNth(n);
        else if (fault.Failing)
            world.System.Files->FailNth(*fault.Failing, n);
        else
            world.System.Files->SetFreeSpace((n - 1) * kSpaceStep);
        const HRESULT status = operation.Run(world);
        world.System.Files->FailNothing();
        world.System.Files->SetFreeSpace({});

        operation.Check(world, status);
        if (operation.ClipRate == 0 || world.LastError() != 0) {
            EXPECT_EQ(world.LastError(), fault.NoMemory ? -11 : -18);
        }
        EXPECT_EQ(world.System.Memory->Held(), 0);
        EXPECT_EQ(world.Status(), 0);
        EXPECT_EQ(world.System.Files->OpenFiles(), 0);
        if (world.History().Current()) {
            EXPECT_EQ(Everything(world), before);
        }
        EXPECT_EQ(operation.Run(world), S_OK) << "the next time it works";
        EXPECT_NE(world.History().Current(), nullptr);
        world.End();
        EXPECT_TRUE(world.TempFiles().empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, Sweep,
                         testing::Combine(testing::Range(0,
                                                         static_cast<int>(std::size(kOperations))),
                                          testing::Range(0, static_cast<int>(std::size(kFaults)))),
                         [](const auto& info) {
                             return std::string(kOperations[std::get<0>(info.param)].Name) + "And" +
                                    kFaults[std::get<1>(info.param)].Name;
                         });

TEST(Stop, LeavesTheDocumentAsItWasOrWithWhatWasPasted) {
    for (const Operation& operation : kOperations) {
        if (!operation.Stopped) continue;
        SCOPED_TRACE(operation.Name);
        Samples complete;
        std::string outcomes;
        bool more = true;
        for (int n = 0; more; ++n) {
            ControlWorld world;
            const std::string before = Prepare(world, operation);
            const Samples samples = world.DocumentSamples();
            if (n > 0) world.Events->InEvent(n, [&] { world.Control->Stop(); });
            EXPECT_EQ(operation.Run(world), S_OK);
            EXPECT_TRUE(world.Events->Take().ends_with("end"));
            if (n == 0) {
                complete = world.DocumentSamples();
                continue;
            }
            more = world.Events->Acted();
            if (!more) break;
            const bool changed = world.DocumentSamples() != samples;
            outcomes += !changed ? '-' : world.DocumentSamples() == complete ? '+' : 'p';
            if (!changed) {
                EXPECT_EQ(Everything(world), before);
            }
            EXPECT_EQ(world.LastError() + world.Status(), 0);
            EXPECT_EQ(world.System.Files->OpenFiles() + world.System.Memory->Held(), 0);
        }
        EXPECT_EQ(outcomes, operation.Stopped);
    }
}

// Something other than the control gets at the file of the open document.
TEST(WorkFile, ThatHasVanishedOrShrunkStopsEditsAndSaves) {
    struct {
        const char* What;
        std::size_t Length;  // of the file
    } const damages[] = {{"all is gone", 0},       {"a part of the header", 50},
                         {"the header only", 58},  {"the last sample is gone", 58 + 1798},
                         {"half of it", 58 + 900}, {"the file", SIZE_MAX}};
    for (const Operation& operation : kOperations) {
        if (operation.Check == CheckNew || operation.Check == CheckOpen ||
            operation.Check == CheckOpenTrack)
            continue;
        for (const auto& damage : damages) {
            SCOPED_TRACE(std::string(operation.Name) + ": " + damage.What);
            ControlWorld world;
            const std::string before = Prepare(world, operation);
            platform::MemoryFileSystem& files = *world.System.Files;
            const auto path = world.WorkFile();
            const auto bytes = *files.Bytes(path);
            files.Remove(path);
            if (damage.Length < bytes.size())
                files.AddFile(path, std::span(bytes).first(damage.Length));

            operation.Check(world, operation.Run(world));
            EXPECT_EQ(world.LastError(), -18);
            EXPECT_EQ(world.Dusoro->State, Output::None);
            EXPECT_EQ(world.Status(), 0);
            EXPECT_EQ(files.OpenFiles(), 0);
            files.AddFile(path, bytes);
            EXPECT_EQ(Everything(world), before);
            EXPECT_EQ(operation.Run(world), S_OK);
            EXPECT_EQ(world.LastError(), 0);
        }
    }
}

}  // namespace
}  // namespace mavrin2::tests
