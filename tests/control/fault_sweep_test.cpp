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
    std::optional<Call> Failing;  // nothing: the disk is full
};

constexpr Fault kFaults[] = {
    {"Create", Call::Create}, {"Write", Call::Write},   {"Open", Call::Open},
    {"Read", Call::Read},     {"Length", Call::Length}, {"FullDisk", std::nullopt},
};

struct Operation {
    const char* Name;
    HRESULT (*Run)(ControlWorld& world);
    // Whether the world is as it has to be after a failing nth call.
    void (*Check)(ControlWorld& world, HRESULT status, const Fault& fault, int n);
    std::int64_t NewFile;  // bytes that the operation writes
};

class Sweep : public testing::TestWithParam<std::tuple<int, int>> {};

std::string Everything(ControlWorld& world) {
    std::string all = world.Positions() + (world.UndoEnabled() ? " undo" : "") +
                      (world.RedoEnabled() ? " redo" : "");
    for (const std::int16_t sample : world.DocumentSamples())
        all += " " + std::to_string(sample);
    for (const auto& path : world.System.Files->Files())
        all += " " + path.string();
    return all;
}

// A document with an older and a newer version, and the state of it all.
std::string Prepare(ControlWorld& world) {
    world.Start();
    world.OpenSound(Ramp(1000));
    for (int edit = 0; edit < 2; ++edit) {
        world.Select(0, 100);
        world.Control->DeleteSelect();
    }
    world.Control->Undo();
    world.Select(500, 600);
    world.Dusoro->State = Output::None;
    world.Dusoro->OpenCode = -12;
    world.Dusoro->Calls.clear();
    return Everything(world);
}

void CheckDelete(ControlWorld& world, HRESULT status, const Fault&, int) {
    EXPECT_EQ(status, S_OK);
    EXPECT_EQ(world.LastError(), 0);
    EXPECT_TRUE(world.Events->Take().ends_with("end"));
}

void CheckSave(ControlWorld& world, HRESULT status, const Fault&, int) {
    // A work file that cannot be opened is nothing to write.
    const bool begun = world.Dusoro->State != Output::None;
    EXPECT_EQ(status, begun ? kFileAccess : S_OK);
    EXPECT_EQ(world.LastError(), begun ? -18 : 0);
    EXPECT_EQ(world.Dusoro->State, begun ? Output::GivenUp : Output::None);
}

void CheckOpen(ControlWorld& world, HRESULT status, const Fault& fault, int n) {
    // A work file that cannot be made with its header is no document, and no error.
    const bool made =
        fault.Failing ? fault.Failing != Call::Create && !(fault.Failing == Call::Write && n == 1)
                      : (n - 1) * kSpaceStep >= 58;
    EXPECT_EQ(status, made ? kFileAccess : S_OK);
    EXPECT_EQ(world.LastError(), made ? -18 : 0);
    EXPECT_EQ(world.History().Current(), nullptr);
    EXPECT_EQ(world.TempFiles().size(), 3u) << "those of the versions before";
    EXPECT_TRUE(world.Dusoro->Calls.ends_with("CloseFile()"));
}

void CheckNew(ControlWorld& world, HRESULT status, const Fault&, int) {
    EXPECT_EQ(status, S_OK);
    EXPECT_EQ(world.LastError(), 0);
    EXPECT_EQ(world.History().Current(), nullptr);
    EXPECT_EQ(world.TempFiles().size(), 3u);
    EXPECT_EQ(world.Events->Take(), "");
    EXPECT_EQ(Got(*world.FileInfo, &interfaces::IMavrin2FileInfo::get_Channels),
              interfaces::ChannelsConstants::STEREO);
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
    {"Save", [](ControlWorld& world) { return world.Save(); }, CheckSave, 0},
    {"DeleteSelect", [](ControlWorld& world) { return world.Control->DeleteSelect(); }, CheckDelete,
     58 + 1600},
};

int CallsOf(const Operation& operation, const Fault& fault) {
    if (!fault.Failing) return static_cast<int>((operation.NewFile + kSpaceStep - 1) / kSpaceStep);
    ControlWorld world;
    Prepare(world);
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
        const std::string before = Prepare(world);
        if (fault.Failing)
            world.System.Files->FailNth(*fault.Failing, n);
        else
            world.System.Files->SetFreeSpace((n - 1) * kSpaceStep);
        const HRESULT status = operation.Run(world);
        world.System.Files->FailNothing();
        world.System.Files->SetFreeSpace({});

        operation.Check(world, status, fault, n);
        EXPECT_EQ(world.Status(), 0);
        EXPECT_EQ(world.System.Files->OpenFiles(), 0);
        if (world.History().Current()) {
            EXPECT_EQ(Everything(world), before);
        }
        EXPECT_EQ(operation.Run(world), S_OK) << "the next time it works";
        EXPECT_NE(world.History().Current(), nullptr);
        world.End();
        EXPECT_TRUE(world.System.Files->Files().empty());
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

}  // namespace
}  // namespace mavrin2::tests
