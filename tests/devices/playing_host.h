#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "automation/event_sink.h"
#include "companions/contracts/constants.h"
#include "companions/velto/playback_companion.h"
#include "tests/devices/built_servers.h"
#include "tests/support/noise.h"
#include "tests/support/pump.h"

namespace mavrin2::velto {

using contracts::ErrorConstants;
using contracts::VeltoEvent;
using tests::PumpUntil;
using tests::Samples;

// A host that plays one sound, a block at a time, as long as there is one.
class Playback : public testing::Test {
protected:
    Playback() {
        EXPECT_EQ(connection_.Open(static_cast<contracts::IVelto2*>(player_.Get()),
                                   contracts::DIID_IVelto2Events,
                                   [this](DISPID event, const automation::EventArguments& values) {
                                       OnEvent(static_cast<VeltoEvent>(event), values);
                                       return S_OK;
                                   }),
                  S_OK);
    }

    ErrorConstants Start(LONG rate = 44100, LONG channels = 2) {
        LONG error = -1;
        channels_ = static_cast<std::size_t>(channels);
        Positions = {};
        Ends = 0;
        player_->SetFormat(rate, channels);
        player_->PrepareDevice();
        EXPECT_EQ(player_->StartDevice(&error), S_OK);
        return static_cast<ErrorConstants>(error);
    }
    void Queue(const Samples& samples) {
        automation::SafeArray<std::int16_t> array(samples.size());
        {
            const automation::ArrayView<std::int16_t> view(array.Get());
            std::copy(samples.begin(), samples.end(), view.Elements().begin());
        }
        player_->QueueBlock(array.Address());
    }
    void QueueNext() {
        const std::size_t count = std::min(Block * channels_, Sound.size() - at_);
        if (count > 0)
            Queue({Sound.begin() + static_cast<std::ptrdiff_t>(at_),
                   Sound.begin() + static_cast<std::ptrdiff_t>(at_ + count)});
        at_ += count;
    }
    // From the beginning of the sound, with two blocks.
    void Play(LONG rate = 44100, LONG channels = 2) {
        at_ = 0;
        ASSERT_EQ(Start(rate, channels), ErrorConstants::NOERRORS);
        QueueNext();
        QueueNext();
    }
    bool Ended() {
        return PumpUntil([&] { return Ends > 0; });
    }
    Samples Recent(LONG count) {
        automation::SafeArray<std::int16_t> array;
        player_->GetRecentSamples(count, array.Put());
        const automation::ArrayView<std::int16_t> view(array.Get());
        return {view.Elements().begin(), view.Elements().end()};
    }

    void OnEvent(VeltoEvent event, const automation::EventArguments& values) {
        if (InEvent) InEvent(event);
        if (!player_) return;
        switch (event) {
            case VeltoEvent::BlockDone:
                QueueNext();
                break;
            case VeltoEvent::Position: {
                LONG frames = 0;
                LONG left = 0;
                LONG right = 0;
                EXPECT_TRUE(values.Read(0, frames) && values.Read(1, left) &&
                            values.Read(2, right));
                EXPECT_EQ(Ends, 0);
                Positions.push_back(frames);
                Peaks.Include({left, right});
                break;
            }
            case VeltoEvent::EndOfData:
                ++Ends;
                break;
            default:
                ADD_FAILURE() << "event " << static_cast<int>(event);
        }
    }

    Samples Sound;
    std::size_t Block = 22050;  // frames
    std::vector<LONG> Positions;
    devices::Levels Peaks;
    int Ends = 0;
    std::function<void(VeltoEvent)> InEvent;

    automation::ComPtr<PlaybackCompanion> player_ = PlaybackCompanion::Make(tests::Servers());
    automation::EventConnection connection_;

private:
    std::size_t channels_ = 2;
    std::size_t at_ = 0;
};

}  // namespace mavrin2::velto
