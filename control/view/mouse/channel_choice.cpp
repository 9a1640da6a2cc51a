#include "control/view/mouse/channel_choice.h"

namespace mavrin2::view {

void ChannelChoice::ChooseByPress(const MouseZones& zones, Point at) {
    Choose(zones, at, true);
}

void ChannelChoice::ChooseWhileSelecting(const MouseZones& zones, Point at) {
    if (zones.InLanes(at)) Choose(zones, at, document_.Channels.OperationCount == 2);
}

void ChannelChoice::Choose(const MouseZones& zones, Point at, bool byEighths) {
    editor::ChannelSwitches& switches = document_.Channels;
    if (document_.Format.Channels != 2 || switches.VisibleCount != 2) return;
    const auto before = switches.Operation;
    const auto channelOf = [](int index) { return static_cast<std::size_t>(index); };
    if (const int only = zones.EighthOf(at); byEighths && only >= 0) {
        switches.Operation[channelOf(only)] = 1;
        switches.Operation[channelOf(1 - only)] = 0;
        switches.Recount(document_.Format.Channels);
    }
    if (const int also = zones.HalfOf(at); switches.OperationCount == 1 && also >= 0)
        switches.Operation[channelOf(also)] = 1;
    if (switches.Operation == before) return;
    switches.Recount(document_.Format.Channels);
    picture_.RenderBackground();
}

}  // namespace mavrin2::view
