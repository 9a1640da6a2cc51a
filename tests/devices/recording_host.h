#pragma once

#include <gtest/gtest.h>

#include "automation/event_sink.h"
#include "companions/contracts/constants.h"
#include "companions/rimbal/capture_companion.h"
#include "tests/devices/built_servers.h"
#include "tests/support/noise.h"
#include "tests/support/pump.h"

namespace mavrin2::rimbal {

using contracts::ErrorConstants;
using contracts::RimbalEvent;
using tests::PumpUntil;
using tests::Samples;

// A host that keeps every block.
class Capture : public testing::Test {
protected:
    Capture() {
        EXPECT_EQ(connection_.Open(static_cast<contracts::IRimbal2*>(recorder_.Get()),
                                   contracts::DIID_IRimbal2Events,
                                   [this](DISPID event, const automation::EventArguments& values) {
                                       OnEvent(static_cast<RimbalEvent>(event), values);
                                       return S_OK;
                                   }),
                  S_OK);
    }

    ErrorConstants Start(LONG block, LONG rate = 44100, LONG channels = 2) {
        Recorded = {};
        Blocks = {};
        Positions = {};
        Peaks = {};
        recorder_->SetFormat(rate, channels);
        recorder_->SetBufferFrames(block);
        recorder_->PrepareDevice();
        LONG error = -1;
        EXPECT_EQ(recorder_->StartDevice(&error), S_OK);
        return static_cast<ErrorConstants>(error);
    }
    bool ReadBlock() {
        automation::SafeArray<std::int16_t> array;
        EXPECT_EQ(recorder_->ReadBlock(array.Put()), S_OK);
        const automation::ArrayView<std::int16_t> view(array.Get());
        const auto samples = view.Elements();
        Recorded.insert(Recorded.end(), samples.begin(), samples.end());
        if (!samples.empty()) Blocks.push_back(samples.size());
        return !samples.empty();
    }
    void Stop() {
        recorder_->StopDevice();
        while (ReadBlock())
            ;
    }
    void Pass(std::chrono::milliseconds time) {
        PumpUntil([] { return false; }, time);
    }

    void OnEvent(RimbalEvent event, const automation::EventArguments& values) {
        LONG first = 0;
        if (event == RimbalEvent::BlockReady) {
            EXPECT_TRUE(ReadBlock());
        } else if (event == RimbalEvent::Position) {
            LONG left = 0;
            LONG right = 0;
            EXPECT_TRUE(values.Read(0, first) && values.Read(1, left) && values.Read(2, right));
            Positions.push_back(first);
            Peaks.Include({left, right});
        } else {
            EXPECT_TRUE(values.Read(0, first));
            Gains.push_back(first);
        }
    }

    Samples Recorded;
    std::vector<std::size_t> Blocks;  // samples
    std::vector<LONG> Positions;
    std::vector<LONG> Gains;
    devices::Levels Peaks;

    automation::ComPtr<CaptureCompanion> recorder_ = CaptureCompanion::Make(tests::Servers());
    automation::EventConnection connection_;
};

}  // namespace mavrin2::rimbal
